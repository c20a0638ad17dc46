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
constexpr ROW kRows[] = {
    {{1899, 12, 30, 0, 0, 0}, 0.0},       {{1900, 1, 4, 0, 0, 0}, 5.0},
    {{1900, 1, 4, 6, 0, 0}, 5.25},        {{1899, 12, 29, 6, 0, 0}, -1.25},
    {{1900, 1, 1, 0, 0, 0}, 2.0},         {{1899, 12, 30, 6, 0, 0}, 0.25},
    {{1899, 12, 29, 0, 0, 0}, -1.0},      {{1900, 2, 28, 0, 0, 0}, 60.0},
    {{1900, 3, 1, 0, 0, 0}, 61.0},        {{1970, 1, 1, 0, 0, 0}, 25569.0},
    {{2000, 2, 29, 12, 0, 0}, 36585.5},   {{2024, 3, 5, 18, 0, 0}, 45356.75},
    {{1601, 1, 1, 0, 0, 0}, -109205.0},   {{1582, 10, 14, 0, 0, 0}, -115859.0},
    {{100, 1, 1, 0, 0, 0}, -657434.0},    {{100, 1, 1, 12, 0, 0}, -657434.5},
    {{9999, 12, 31, 0, 0, 0}, 2958465.0}, {{9999, 12, 31, 23, 59, 59}, 2958465.0 + 86399.0 / 86400.0},
};

TEST(OleDateTest, BothDirections) {
    for (const ROW& row : kRows) {
        double date = 0.5;
        ASSERT_TRUE(OleDateFromCivil(row.time, date)) << row.date;
        EXPECT_NEAR(date, row.date, 1e-9);
        CIVILTIME time;
        ASSERT_TRUE(CivilFromOleDate(row.date, time)) << row.date;
        EXPECT_EQ(time, row.time) << row.date;
    }
}

TEST(OleDateTest, FieldsRollOver) {
    const ROW rows[] = {
        {{2023, 2, 30, 0, 0, 0}, 44987.0},
        {{2023, 1, 0, 0, 0, 0}, 44926.0},
        {{2023, 0, 1, 0, 0, 0}, 44896.0},
        {{2023, 13, 1, 0, 0, 0}, 45292.0},
        {{2023, 25, 1, 0, 0, 0}, 45658.0},
        {{2023, 100, 1, 0, 0, 0}, 47939.0},
        {{2023, 1, 40, 0, 0, 0}, 44966.0},
        {{2023, 1, 1, 25, 0, 0}, 44928.0 + 1.0 / 24.0},
        {{2023, 12, 31, 23, 59, 60}, 45292.0},
        {{2023, 1, 1, -1, 0, 0}, 44926.0 + 23.0 / 24.0},
        {{1899, 12, 28, 25, 0, 0}, -1.0 - 1.0 / 24.0},
        {{101, 0, 0, 0, 0, 0}, -657101.0},
    };
    for (const ROW& row : rows) {
        double date = 0.5;
        ASSERT_TRUE(OleDateFromCivil(row.time, date)) << row.date;
        EXPECT_NEAR(date, row.date, 1e-9) << row.date;
    }
}

TEST(OleDateTest, TwoDigitYears) {
    // 30 to 49 are left out: there the answer depends on the version of Windows.
    const ROW rows[] = {{{0, 1, 1}, 36526.0},  {{5, 3, 24}, 38435.0},   {{29, 1, 1}, 47119.0},
                        {{50, 1, 1}, 18264.0}, {{99, 12, 31}, 36525.0}, {{99, 13, 1}, 36526.0}};
    for (const ROW& row : rows) {
        double date = 0.5;
        ASSERT_TRUE(OleDateFromCivil(row.time, date)) << row.date;
        EXPECT_EQ(date, row.date);
    }
#if !defined(_WIN32)
    double date = 0;
    ASSERT_TRUE(OleDateFromCivil({30, 1, 1}, date));
    EXPECT_EQ(date, 10959.0);  // 1 January 1930
#endif
}

TEST(OleDateTest, OutOfRangeFailsAndChangesNothing) {
    const CIVILTIME times[] = {{10000, 1, 1},
                               {32767, 1, 1},
                               {-1, 1, 1},
                               {70000, 1, 1},
                               {100, 1, 0},
                               {100, 0, 1},
                               {9999, 13, 1},
                               {9999, 12, 31, 24},
                               {2024, 70000, 1},
                               {2024, 1, -70000},
                               {2024, 1, 1, 1 << 20},
                               {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0}};
    for (const CIVILTIME& time : times) {
        double date = 0.5;
        EXPECT_FALSE(OleDateFromCivil(time, date)) << time.year << ' ' << time.month << ' ' << time.day;
        EXPECT_EQ(date, 0.5);
    }
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double date : {-657435.0, -657435.5, 2958466.0, 1e10, -1e10, 1e300, -1e300, infinity, -infinity,
                              std::numeric_limits<double>::quiet_NaN(), 2958465.9999999}) {
        CIVILTIME time{1, 2, 3, 4, 5, 6};
        EXPECT_FALSE(CivilFromOleDate(date, time)) << date;
        EXPECT_EQ(time, (CIVILTIME{1, 2, 3, 4, 5, 6})) << date;
    }
}

TEST(OleDateTest, RoundsToTheNearestSecondAndRollsOver) {
    const double second = 1.0 / 86400.0;
    const ROW rows[] = {
        {{2024, 3, 6, 0, 0, 0}, 45357.0 - 0.4 * second},
        {{2024, 3, 5, 23, 59, 59}, 45357.0 - 0.6 * second},
        {{2024, 3, 5, 0, 0, 0}, 45356.0 + 0.4 * second},
        {{2024, 3, 5, 0, 0, 1}, 45356.0 + 0.6 * second},
        {{1899, 12, 30, 0, 0, 0}, -2.0 + 0.4 * second},
        {{1899, 12, 31, 0, 0, 0}, -1.0 + 0.4 * second},
        {{1899, 12, 30, 6, 0, 0}, -0.25},
        {{100, 1, 2, 0, 0, 0}, -657435.0 + 0.4 * second},
        {{1899, 12, 30, 0, 0, 0}, 5e-324},
        {{1899, 12, 30, 0, 0, 0}, -0.0},
    };
    for (const ROW& row : rows) {
        CIVILTIME time;
        ASSERT_TRUE(CivilFromOleDate(row.date, time)) << row.date;
        EXPECT_EQ(time, row.time) << row.date;
    }
}

TEST(OleDateTest, EverySecondOfADayComesBack) {
    for (const int year : {1850, 2024}) {
        for (int second = 0; second < 86400; ++second) {
            const CIVILTIME time{year, 6, 15, second / 3600, second / 60 % 60, second % 60};
            double date = 0;
            CIVILTIME back;
            ASSERT_TRUE(OleDateFromCivil(time, date) && CivilFromOleDate(date, back));
            ASSERT_EQ(back, time);
        }
    }
}

}  // namespace
