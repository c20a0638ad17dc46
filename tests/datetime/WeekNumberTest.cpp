#include <MLCore/datetime/Periods.h>
#include <gtest/gtest.h>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::CALENDAR;
using support::DAY;

CALENDAR Calendar(int firstDay, int rule) {
    const CALENDAR calendar = support::OwnCalendar(0);
    calendar->SetFirstDayOfWeek(static_cast<CDATE::eDay>(firstDay));
    calendar->SetFirstWeek(static_cast<CCALENDARSTRATEGY::eKindOfFirstWeekOfYear>(rule));
    return calendar;
}

// Weeks are gone through one after the other. The year of a week is the year of one of its days: of the last when the
// week with 1 January is week 1, of the fourth when most days decide, of the first when only full weeks count. The
// number starts again with each year.
TEST(WeekNumberTest, AllFirstDaysAndRules) {
    constexpr int kDeciding[] = {6, 3, 0};
    for (int i = 0; i < 21; ++i) {
        const CALENDAR calendar = Calendar(i / 3, i % 3);
        DAY day;
        while (day.year < 1880 || day.weekday != i / 3) {
            day.Advance();
        }
        int number = 0;
        int numberedYear = 0;
        while (day.year < 2050) {
            DAY week[7];
            for (DAY& each : week) {
                each = day;
                day.Advance();
            }
            const int weekYear = week[kDeciding[i % 3]].year;
            number = weekYear == numberedYear ? number + 1 : 1;
            numberedYear = weekYear;
            for (const DAY& each : week) {
                const CDATE date = each.Date();
                std::int16_t year = 0;
                if (weekYear >= 1890) {
                    ASSERT_EQ(date.GetWeekNumber(&year, calendar), number) << date << i;
                    ASSERT_EQ(year, weekYear) << date << i;
                }
                const CDATE first = week[0].Date();
                const CDATE last = week[6].Date();
                ASSERT_EQ(FirstDateWeek(date, calendar), first) << date << i;
                ASSERT_EQ(LastDateWeek(date, calendar), last) << date << i;
                ASSERT_EQ(FirstDateEchelonnement(date, CDATE::EchelonWeek, calendar), first) << date << i;
                ASSERT_EQ(LastDateEchelonnement(date, CDATE::EchelonWeek, calendar), last) << date << i;
                const CDATETIME moment(date, CTIME(14, 5, 0));
                ASSERT_EQ(FirstDateTimeWeek(moment, calendar), CDATETIME(first, CTIME(0, 0, 0))) << date << i;
                ASSERT_EQ(LastDateTimeWeek(moment, calendar), CDATETIME(last, CTIME(23, 59, 59))) << date << i;
            }
        }
    }
}

TEST(WeekNumberTest, WorkedDates) {
    // Year and week under the three rules, from Monday and from Sunday.
    const CDATE kDates[] = {{1, 1, 2021}, {1, 1, 2023}, {31, 12, 2024}, {31, 12, 1903}};
    const int kWeeks[] = {202101, 202053, 202052, 202301, 202301, 202301,
                          202501, 202501, 202453, 190401, 190352, 190352};
    for (int i = 0; i < 12; ++i) {
        const CALENDAR calendar = Calendar(i / 3 % 2 == 0 ? CDATE::Monday : CDATE::Sunday, i % 3);
        std::int16_t year = 0;
        const int number = kDates[i / 3].GetWeekNumber(&year, calendar);
        EXPECT_EQ(year * 100 + number, kWeeks[i]) << kDates[i / 3] << i;
    }
    EXPECT_EQ(FirstDateWeek(CDATE(6, 3, 2024)), CDATE(4, 3, 2024));
    // Fields that are not a valid date, 31 February for 2 March, stay as they are on the first day of their week.
    EXPECT_EQ(FirstDateWeek({31, 2, 2024}, Calendar(CDATE::Saturday, 0)), CDATE(31, 2, 2024));
    EXPECT_EQ(LastDateWeek({31, 2, 2024}, Calendar(CDATE::Saturday, 0)), CDATE(8, 3, 2024));
    EXPECT_EQ(FirstDateWeek({31, 2, 2024}, Calendar(CDATE::Sunday, 0)), CDATE(25, 2, 2024));
}

TEST(WeekNumberTest, UnknownRulesInvalidDatesAndNullArguments) {
    // An unknown rule is the plain one with the current calendar's weeks, which start on Monday.
    std::int16_t year = 0;
    for (const int rule : {-1, 3, 7}) {
        const CALENDAR calendar = Calendar(CDATE::Sunday, rule);
        EXPECT_EQ(CDATE(7, 1, 2024).GetWeekNumber({}, calendar), 1);
        EXPECT_EQ(CDATE(8, 1, 2024).GetWeekNumber({}, calendar), 2);
        EXPECT_EQ(CDATE(31, 12, 2024).GetWeekNumber(&year, calendar), 1);
        EXPECT_EQ(year, 2025);
    }
    EXPECT_EQ(CDATE(31, 12, 2024).GetWeekNumber(), 1);
    EXPECT_EQ(CDATE(30, 2, 2024).GetWeekNumber(&year), 0);
    EXPECT_EQ(year, 2024);
    // A first day of the week beyond the range counts modulo 7.
    for (int firstDay = -14; firstDay <= 20; ++firstDay) {
        const CALENDAR calendar = Calendar(firstDay, 1);
        const CALENDAR same = Calendar((firstDay + 14) % 7, 1);
        for (const CDATE& date : {CDATE(1, 1, 1904), CDATE(6, 3, 2024)}) {
            EXPECT_EQ(FirstDateWeek(date, calendar), FirstDateWeek(date, same)) << firstDay;
            EXPECT_EQ(date.GetWeekNumber(nullptr, calendar), date.GetWeekNumber(nullptr, same)) << firstDay;
        }
    }
}

}  // namespace
