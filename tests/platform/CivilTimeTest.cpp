#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace MLCore::platform;

TEST(CivilTimeTest, GoesThroughSystemTime) {
    const CIVILTIME time{2024, 3, 5, 23, 59, 58};
    const SYSTEMTIME system = SystemTimeFromCivil(time, 2);
    const WORD fields[] = {system.wYear, system.wMonth,  system.wDay,    system.wDayOfWeek,
                           system.wHour, system.wMinute, system.wSecond, system.wMilliseconds};
    EXPECT_EQ(std::vector<int>(std::begin(fields), std::end(fields)), (std::vector<int>{2024, 3, 5, 2, 23, 59, 58, 0}));
    EXPECT_EQ(CivilFromSystemTime(system), time);
}

TEST(CivilTimeTest, FieldsAreStoredModulo65536) {
    EXPECT_EQ(SystemTimeFromCivil({-1, 1, 1}, 0).wYear, 65535);
    SYSTEMTIME nonsense{};
    nonsense.wMonth = 65535;
    EXPECT_EQ(CivilFromSystemTime(nonsense).month, 65535);
}

}  // namespace
