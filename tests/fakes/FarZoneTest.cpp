// In the place of the platform's local zone and clock: offsets that no map shows, and a clock that stands still.

#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/platform/LocalZone.h>
#include <gtest/gtest.h>

#include <climits>

namespace {

std::int32_t gOffset = 0;
MLCore::platform::CIVILTIME gNow;

}  // namespace

namespace MLCore::platform {

std::int32_t LocalOffsetFromUtc(std::int64_t) noexcept { return gOffset; }

CIVILTIME LocalNow() noexcept { return gNow; }

}  // namespace MLCore::platform

namespace {

using namespace MLCore;

TEST(FarZoneTest, AnyOffsetIsAdded) {
    const struct {
        std::int32_t offset;
        CDATETIME local;
    } kRows[] = {{0, CDATETIME(CDATE(5, 3, 2024), CTIME(12, 0, 0))},
                 {1, CDATETIME(CDATE(5, 3, 2024), CTIME(12, 0, 1))},
                 {-43201, CDATETIME(CDATE(4, 3, 2024), CTIME(23, 59, 59))},
                 {86400 * 366, CDATETIME(CDATE(6, 3, 2025), CTIME(12, 0, 0))},
                 {-86400 * 366, CDATETIME(CDATE(5, 3, 2023), CTIME(12, 0, 0))}};
    for (const auto& row : kRows) {
        gOffset = row.offset;
        CDATETIME moment(CDATE(5, 3, 2024), CTIME(12, 0, 0));
        moment.ToLocalZone();
        EXPECT_EQ(moment, row.local) << row.offset;
        moment.ToGMZone();
        EXPECT_EQ(moment, CDATETIME(CDATE(5, 3, 2024), CTIME(12, 0, 0))) << row.offset;
    }
    for (const std::int32_t offset : {INT32_MIN, INT32_MAX}) {
        gOffset = offset;
        CDATETIME last(CDATE(31, 12, SHRT_MAX), CTIME(23, 59, 59));
        last.ToLocalZone();
        EXPECT_EQ(last.IsNull(), offset > 0 ? 1 : 0) << "beyond the last year";
        CDATETIME null;
        null.ToLocalZone();
        null.ToGMZone();
        EXPECT_EQ(null.IsNull(), 1);
    }
    gOffset = 0;
}

TEST(FarZoneTest, TheClockIsTheSystems) {
    gNow = {2024, 2, 29, 23, 59, 58};
    EXPECT_EQ(CDATE::Today(), CDATE(29, 2, 2024));
    EXPECT_EQ(CDATETIME::Now(), CDATETIME(CDATE(29, 2, 2024), CTIME(23, 59, 58)));
}

}  // namespace
