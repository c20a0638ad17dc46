#include <MLCore/platform/OleDate.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace MLCore::platform;

struct ROW {
    CIVILTIME time;
    double date;
};

// The first five are the published examples of the type DATE; the others are day counts from 30 December 1899.
constexpr ROW kRows[] = {{{1899, 12, 30}, 0.0},        {{1900, 1, 4}, 5.0},
                         {{1900, 1, 4, 6}, 5.25},      {{1899, 12, 29, 6}, -1.25},
                         {{1900, 1, 1}, 2.0},          {{1899, 12, 30, 6}, 0.25},
                         {{1899, 12, 29}, -1.0},       {{1900, 2, 28}, 60.0},
                         {{1900, 3, 1}, 61.0},         {{1970, 1, 1}, 25569.0},
                         {{2000, 2, 29, 12}, 36585.5}, {{2024, 3, 5, 18}, 45356.75},
                         {{1601, 1, 1}, -109205.0},    {{1582, 10, 14}, -115859.0},
                         {{100, 1, 1}, -657434.0},     {{100, 1, 1, 12}, -657434.5},
                         {{9999, 12, 31}, 2958465.0},  {{9999, 12, 31, 23, 59, 59}, 2958465.0 + 86399.0 / 86400.0}};

/// Fields that are no date of their own, but give one; and two-digit years, of which Windows reads 30 to 49
/// differently.
constexpr ROW kRolling[] = {{{2023, 2, 30}, 44987.0},     {{2023, 1, 0}, 44926.0},
                            {{2023, 0, 1}, 44896.0},      {{2023, 13, 1}, 45292.0},
                            {{2023, 25, 1}, 45658.0},     {{2023, 100, 1}, 47939.0},
                            {{2023, 1, 40}, 44966.0},     {{101, 0, 0}, -657101.0},
                            {{2023, 1, 1, 30}, 44928.25}, {{2023, 12, 31, 23, 59, 60}, 45292.0},
                            {{2023, 1, 1, -6}, 44926.75}, {{1899, 12, 28, 30}, -1.25},
                            {{0, 1, 1}, 36526.0},         {{5, 3, 24}, 38435.0},
                            {{29, 1, 1}, 47119.0},        {{50, 1, 1}, 18264.0},
                            {{99, 12, 31}, 36525.0},      {{99, 13, 1}, 36526.0}};

/// Numbers that are rounded to the nearest second: 0.4 and 0.6 of one are added or missing.
constexpr ROW kRounding[] = {{{2024, 3, 6}, 45357.0 - 4.6e-6}, {{2024, 3, 5, 23, 59, 59}, 45357.0 - 6.9e-6},
                             {{2024, 3, 5}, 45356.0 + 4.6e-6}, {{2024, 3, 5, 0, 0, 1}, 45356.0 + 6.9e-6},
                             {{1899, 12, 30}, -2.0 + 4.6e-6},  {{1899, 12, 31}, -1.0 + 4.6e-6},
                             {{1899, 12, 30, 6}, -0.25},       {{100, 1, 2}, -657435.0 + 4.6e-6},
                             {{1899, 12, 30}, 5e-324},         {{1899, 12, 30}, -0.0}};

template <std::size_t count>
void ExpectDates(const ROW (&rows)[count]) {
    for (const ROW& row : rows) {
        double date = 0.5;
        ASSERT_TRUE(OleDateFromCivil(row.time, date)) << row.date;
        EXPECT_NEAR(date, row.date, 1e-9);
    }
}
template <std::size_t count>
void ExpectTimes(const ROW (&rows)[count]) {
    for (const ROW& row : rows) {
        CIVILTIME time;
        ASSERT_TRUE(CivilFromOleDate(row.date, time)) << row.date;
        EXPECT_EQ(time, row.time) << row.date;
    }
}

TEST(OleDateTest, BothDirections) {
    ExpectDates(kRows);
    ExpectDates(kRolling);
#if !defined(_WIN32)
    ExpectDates({{{30, 1, 1}, 10959.0}});
#endif
    ExpectTimes(kRows);
    ExpectTimes(kRounding);
}

TEST(OleDateTest, OutOfRangeFailsAndChangesNothing) {
    using std::numeric_limits;
    const CIVILTIME times[] = {
        {10000, 1, 1},     {32767, 1, 1},         {-1, 1, 1},
        {70000, 1, 1},     {100, 1, 0},           {100, 0, 1},
        {9999, 13, 1},     {9999, 12, 31, 24},    {2024, 70000, 1},
        {2024, 1, -70000}, {2024, 1, 1, 1 << 20}, {numeric_limits<int>::min(), numeric_limits<int>::max(), 0}};
    for (const CIVILTIME& time : times) {
        double date = 0.5;
        EXPECT_FALSE(OleDateFromCivil(time, date)) << time.year << ' ' << time.month << ' ' << time.day;
        EXPECT_EQ(date, 0.5);
    }
    const double infinity = numeric_limits<double>::infinity();
    for (const double date : {-657435.0, -657435.5, 2958466.0, 1e10, -1e10, 1e300, -1e300, infinity, -infinity,
                              numeric_limits<double>::quiet_NaN(), 2958465.9999999}) {
        CIVILTIME time{1, 2, 3, 4, 5, 6};
        EXPECT_FALSE(CivilFromOleDate(date, time)) << date;
        EXPECT_EQ(time, (CIVILTIME{1, 2, 3, 4, 5, 6})) << date;
    }
}

TEST(OleDateTest, EverySecondOfADayComesBack) {
    for (int second = 0; second < 2 * 86400; ++second) {
        const CIVILTIME time{second < 86400 ? 1850 : 2024, 6, 15, second / 3600 % 24, second / 60 % 60, second % 60};
        double date = 0;
        CIVILTIME back;
        ASSERT_TRUE(OleDateFromCivil(time, date));
        ASSERT_TRUE(CivilFromOleDate(date, back));
        ASSERT_EQ(back, time);
    }
}

}  // namespace
