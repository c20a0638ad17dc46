#include <MLCore/datetime/Periods.h>
#include <gtest/gtest.h>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::Date;
using support::DAY;

// By CDATE::eTypeEchelonnement from 2.
const struct {
    CDATE (*first)(const CDATE&);
    CDATE (*last)(const CDATE&);
    CDATETIME (*firstMoment)(const CDATETIME&);
    CDATETIME (*lastMoment)(const CDATETIME&);
    int months;
} kPeriods[] = {{FirstDateMonth, LastDateMonth, FirstDateTimeMonth, LastDateTimeMonth, 1},
                {FirstDateBimestre, LastDateBimestre, FirstDateTimeBimestre, LastDateTimeBimestre, 2},
                {FirstDateTrimestre, LastDateTrimestre, FirstDateTimeTrimestre, LastDateTimeTrimestre, 3},
                {FirstDateSemestre, LastDateSemestre, FirstDateTimeSemestre, LastDateTimeSemestre, 6},
                {FirstDateYear, LastDateYear, FirstDateTimeYear, LastDateTimeYear, 12}};

TEST(PeriodsTest, EveryDayOfSomeYears) {
    for (DAY day; day.year < 10000; day.Advance()) {
        if (day.year % 303 != 0 && day.year != 1904) {  // 0, 303 ... 2424 ... 9999
            continue;
        }
        const CDATE date = day.Date();
        const CDATETIME moment(date, CTIME(14, 5, 0));
        for (int i = 0; i < 5; ++i) {
            const auto& period = kPeriods[i];
            const int firstMonth = (day.month - 1) / period.months * period.months + 1;
            const int lastMonth = firstMonth + period.months - 1;
            const CDATE first = Date(1, firstMonth, day.year);
            const CDATE last = Date(support::MonthLength(lastMonth, day.year), lastMonth, day.year);
            ASSERT_EQ(period.first(date), first) << date << i;
            ASSERT_EQ(period.last(date), last) << date << i;
            ASSERT_EQ(period.firstMoment(moment), CDATETIME(first, CTIME(0, 0, 0))) << date << i;
            ASSERT_EQ(period.lastMoment(moment), CDATETIME(last, CTIME(23, 59, 59))) << date << i;
            const auto kind = static_cast<CDATE::eTypeEchelonnement>(i + 2);
            ASSERT_EQ(FirstDateEchelonnement(date, kind), first);
            ASSERT_EQ(LastDateEchelonnement(date, kind), last);
        }
        ASSERT_EQ(date.GetBimestreNumber(), (day.month + 1) / 2) << date;
        ASSERT_EQ(date.GetTrimestreNumber(), (day.month + 2) / 3) << date;
        ASSERT_EQ(date.GetSemestreNumber(), day.month < 7 ? 1 : 2) << date;
        ASSERT_EQ(FirstDateEchelonnement(date, CDATE::EchelonDay), date);
        ASSERT_EQ(LastDateEchelonnement(date, CDATE::EchelonDay), date);
    }
}

TEST(PeriodsTest, WhatIsNoDate) {
    for (int kind = -2; kind <= 9; ++kind) {
        const auto type = static_cast<CDATE::eTypeEchelonnement>(kind);
        EXPECT_TRUE(FirstDateEchelonnement({}, type).IsNull());
        EXPECT_TRUE(LastDateEchelonnement({30, 2, 2024}, type).IsNull());
        EXPECT_EQ(LastDateEchelonnement(CDATE(1, 2, 2024), type).IsNull() != 0, kind < 0 || kind > 6);
    }
    EXPECT_EQ(FirstDateMonth({}), CDATE(1, 0, 0));
    EXPECT_EQ(FirstDateYear({}), CDATE(1, 1, 0));
    EXPECT_EQ(LastDateMonth({15, 0, 2024}), CDATE(31, 12, 2023));
    EXPECT_EQ(LastDateYear({}), CDATE(31, 12, 0));
    EXPECT_EQ(LastDateMonth({31, 2, 2023}), CDATE(28, 2, 2023));
}

}  // namespace
