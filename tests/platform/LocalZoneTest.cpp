#include <MLCore/platform/LocalZone.h>
#include <gtest/gtest.h>

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

constexpr std::int64_t kInstants[] = {kFirst,
                                      kFirst + 1,
                                      At(-1000, 7, 1, 12),
                                      At(0, 2, 29, 0),
                                      At(1600, 2, 29, 12),
                                      At(1601, 1, 1, 0),
                                      At(1602, 1, 1, 0),
                                      -1,
                                      0,
                                      At(2024, 3, 5, 23, 30),
                                      At(9999, 12, 31, 23, 59),
                                      At(30827, 12, 31, 23),
                                      At(32000, 2, 29, 0),
                                      67768036191676799 + 86400,
                                      kLast - 1,
                                      kLast};

TEST(LocalZoneTest, NeverFailsAndStaysWithinADay) {
    for (const std::int64_t instant : kInstants) {
        EXPECT_LT(std::abs(LocalOffsetFromUtc(instant)), 86400) << instant;
    }
}

TEST(LocalZoneTest, HonoursAFixedZoneOfTheProcess) {
    const char* const zone = std::getenv("TZ");
    const std::string name = zone != nullptr ? zone : "";
    if (name != "UTC0" && name != "UTC-2") {
        GTEST_SKIP() << "the process was not started with one of the fixed zones";
    }
    for (const std::int64_t instant : kInstants) {
        EXPECT_EQ(LocalOffsetFromUtc(instant), name == "UTC-2" ? 7200 : 0) << instant;
    }
}

TEST(LocalZoneTest, NowIsTheClocksTimeInTheZone) {
    const std::int64_t before = std::time(nullptr);
    const CIVILTIME now = LocalNow();
    const std::int64_t after = std::time(nullptr);
    const sys_days day = year{now.year} / now.month / now.day;
    const std::int64_t local =
        std::chrono::sys_seconds(day).time_since_epoch().count() + now.hour * 3600 + now.minute * 60 + now.second;
    EXPECT_GE(local - LocalOffsetFromUtc(before), before - 1);
    EXPECT_LE(local - LocalOffsetFromUtc(after), after + 1);
}

#if !defined(_WIN32)

/// Sets the zone and puts the old one back.
class ZONE {
public:
    explicit ZONE(const char* name) {
        const char* const previous = std::getenv("TZ");
        mHadPrevious = previous != nullptr;
        mPrevious = mHadPrevious ? previous : "";
        setenv("TZ", name, 1);
        tzset();
    }
    ~ZONE() {
        if (mHadPrevious) {
            setenv("TZ", mPrevious.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    ZONE(const ZONE&) = delete;
    ZONE& operator=(const ZONE&) = delete;

private:
    bool mHadPrevious;
    std::string mPrevious;
};

TEST(LocalZoneTest, NamedZones) {
    // Offsets and changes from the IANA time zone database.
    const struct {
        const char* zone;
        std::int64_t instant;
        std::int32_t offset;
    } kRows[] = {
        {"UTC", At(2024, 7, 1, 0), 0},
        {"Europe/Paris", At(2024, 3, 31, 0, 59), 3600},
        {"Europe/Paris", At(2024, 3, 31, 1, 0), 7200},
        {"Europe/Paris", At(2024, 10, 27, 0, 59), 7200},
        {"Europe/Paris", At(2024, 10, 27, 1, 0), 3600},
        {"Europe/Paris", At(1960, 7, 1, 0), 3600},
        {"Europe/Paris", At(2100, 7, 1, 0), 7200},
        {"Europe/Paris", At(1600, 7, 1, 0), 561},
        {"America/New_York", At(2024, 3, 10, 6, 59), -18000},
        {"America/New_York", At(2024, 3, 10, 7, 0), -14400},
        {"Pacific/Kiritimati", At(2024, 1, 1, 0), 50400},
        {"Pacific/Kiritimati", At(1990, 1, 1, 0), -36000},
        {"Asia/Kolkata", At(2024, 1, 1, 0), 19800},
        {"UTC-2", At(2024, 3, 5, 23, 30), 7200},
    };
    for (const auto& row : kRows) {
        const ZONE zone(row.zone);
        EXPECT_EQ(LocalOffsetFromUtc(row.instant), row.offset) << row.zone << ' ' << row.instant;
    }
}

TEST(LocalZoneTest, InTheFarFutureTheLastRuleHolds) {
    const ZONE zone("Europe/Paris");
    constexpr std::int64_t kFourHundredYears = 146097LL * 86400;
    const std::int64_t mostCycles = (kLast - At(2100, 7, 1, 0)) / kFourHundredYears;
    for (const std::int64_t cycles : {std::int64_t{1}, std::int64_t{249}, std::int64_t{250}, std::int64_t{251},
                                      std::int64_t{15000}, std::int64_t{1000000}, mostCycles}) {
        EXPECT_EQ(LocalOffsetFromUtc(At(2100, 7, 1, 0) + cycles * kFourHundredYears), 7200) << cycles;
        EXPECT_EQ(LocalOffsetFromUtc(At(2100, 1, 1, 0) + cycles * kFourHundredYears), 3600) << cycles;
    }
    EXPECT_EQ(LocalOffsetFromUtc(kFirst), 561);
}

#endif

}  // namespace
