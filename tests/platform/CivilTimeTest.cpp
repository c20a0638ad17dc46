#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

namespace {

using namespace MLCore::platform;

TEST(CivilTimeTest, GoesThroughSystemTime) {
    const CIVILTIME time{2024, 3, 5, 23, 59, 58};
    const SYSTEMTIME system = SystemTimeFromCivil(time, 2);
    EXPECT_EQ(system.wYear, 2024);
    EXPECT_EQ(system.wMonth, 3);
    EXPECT_EQ(system.wDay, 5);
    EXPECT_EQ(system.wDayOfWeek, 2);
    EXPECT_EQ(system.wHour, 23);
    EXPECT_EQ(system.wMinute, 59);
    EXPECT_EQ(system.wSecond, 58);
    EXPECT_EQ(system.wMilliseconds, 0);
    EXPECT_EQ(CivilFromSystemTime(system), time);
}

TEST(CivilTimeTest, FieldsAreStoredModulo65536) {
    EXPECT_EQ(SystemTimeFromCivil({-1, 1, 1}, 0).wYear, 65535);
    EXPECT_EQ(SystemTimeFromCivil({65537, 1, 1}, 0).wYear, 1);
    SYSTEMTIME nonsense{};
    nonsense.wMonth = 65535;
    EXPECT_EQ(CivilFromSystemTime(nonsense).month, 65535);
}

}  // namespace
