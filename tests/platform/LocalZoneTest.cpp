#include <MLCore/platform/LocalZone.h>
#include <gtest/gtest.h>
#include <support/Environment.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

namespace {

using namespace MLCore::platform;
using std::chrono::sys_days;
using std::chrono::year;

constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kFirst = std::numeric_limits<std::int64_t>::min();

constexpr std::int64_t At(int y, unsigned month, unsigned day, int hour, int minute = 0) {
    const std::chrono::sys_seconds midnight = sys_days(year{y} / static_cast<int>(month) / static_cast<int>(day));
    return midnight.time_since_epoch().count() + hour * 3600 + minute * 60;
}

TEST(LocalZoneTest, NeverFailsAndHonoursAFixedZoneOfTheProcess) {
    const char* const zone = std::getenv("TZ");
    const std::string name = zone != nullptr ? zone : "";
    for (const std::int64_t instant :
         {kFirst, kFirst + 1, At(-1000, 7, 1, 12), At(0, 2, 29, 0), At(1600, 2, 29, 12), At(1601, 1, 1, 0),
          At(1602, 1, 1, 0), std::int64_t{-1}, std::int64_t{0}, At(2024, 3, 5, 23, 30), At(9999, 12, 31, 23, 59),
          At(30827, 12, 31, 23), At(32000, 2, 29, 0), std::int64_t{67768036191676799} + 86400, kLast - 1, kLast}) {
        EXPECT_LT(std::abs(LocalOffsetFromUtc(instant)), 86400) << instant;
        if (name == "UTC0" || name == "UTC-2") {
            EXPECT_EQ(LocalOffsetFromUtc(instant), name == "UTC-2" ? 7200 : 0) << instant;
        }
    }
}

TEST(LocalZoneTest, NowIsTheClocksTimeInTheZone) {
    const std::int64_t before = std::time(nullptr);
    const CIVILTIME now = LocalNow();
    const std::int64_t after = std::time(nullptr);
    const std::int64_t local =
        At(now.year, static_cast<unsigned>(now.month), static_cast<unsigned>(now.day), now.hour, now.minute) +
        now.second;
    EXPECT_GE(local - LocalOffsetFromUtc(before), before - 1);
    EXPECT_LE(local - LocalOffsetFromUtc(after), after + 1);
}

#if !defined(_WIN32)

TEST(LocalZoneTest, NamedZones) {
    // Offsets and changes from the IANA time zone database.
    const std::int64_t summer = At(2024, 7, 1, 0);
    const struct {
        const char* zone;
        std::int64_t instant;
        std::int32_t offset;
    } kRows[] = {{"UTC", summer, 0},
                 {"Europe/Paris", At(2024, 3, 31, 0, 59), 3600},
                 {"Europe/Paris", At(2024, 3, 31, 1, 0), 7200},
                 {"Europe/Paris", At(2024, 10, 27, 0, 59), 7200},
                 {"Europe/Paris", At(2024, 10, 27, 1, 0), 3600},
                 {"Europe/Paris", At(1960, 7, 1, 0), 3600},
                 {"Europe/Paris", At(2100, 7, 1, 0), 7200},
                 {"Europe/Paris", kFirst, 561},
                 {"America/New_York", summer, -14400},
                 {"Pacific/Kiritimati", summer, 50400},
                 {"Pacific/Kiritimati", At(1990, 1, 1, 0), -36000},
                 {"Asia/Kolkata", summer, 19800},
                 {"UTC-2", summer, 7200}};
    for (const auto& row : kRows) {
        const support::ENVIRONMENT zone("TZ", row.zone);
        EXPECT_EQ(LocalOffsetFromUtc(row.instant), row.offset) << row.zone << ' ' << row.instant;
    }
}

TEST(LocalZoneTest, InTheFarFutureTheLastRuleHolds) {
    const support::ENVIRONMENT zone("TZ", "Europe/Paris");
    constexpr std::int64_t kFourHundredYears = 146097LL * 86400;
    const std::int64_t mostCycles = (kLast - At(2100, 7, 1, 0)) / kFourHundredYears;
    for (const std::int64_t cycles :
         {std::int64_t{1}, std::int64_t{249}, std::int64_t{250}, std::int64_t{251}, mostCycles}) {
        EXPECT_EQ(LocalOffsetFromUtc(At(2100, 7, 1, 0) + cycles * kFourHundredYears), 7200) << cycles;
        EXPECT_EQ(LocalOffsetFromUtc(At(2100, 1, 1, 0) + cycles * kFourHundredYears), 3600) << cycles;
    }
}

#endif

}  // namespace
