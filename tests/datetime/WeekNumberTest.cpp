#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/Chrono.h>
#include <MLCore/datetime/Periods.h>
#include <gtest/gtest.h>

#include <chrono>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::Date;
using support::DAY;

CSHAREOBJECTPTR<CCALENDARSTRATEGY> Calendar(int firstDay, int rule) {
    CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = CCALENDARFRENCHSTRATEGY::Create();
    calendar->SetFirstDayOfWeek(static_cast<CDATE::eDay>(firstDay));
    calendar->SetFirstWeek(static_cast<CCALENDARSTRATEGY::eKindOfFirstWeekOfYear>(rule));
    return calendar;
}

// Weeks are gone through one after the other. The year of a week is the year of one of its days: of the last when the
// week with 1 January is week 1, of the fourth when most days decide, of the first when only full weeks count. The number
// starts again with each year.
TEST(WeekNumberTest, AllFirstDaysAndRules) {
    constexpr int kDeciding[] = {6, 3, 0};
    for (int firstDay = 0; firstDay < 7; ++firstDay) {
        for (int rule = 0; rule < 3; ++rule) {
            const CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = Calendar(firstDay, rule);
            DAY day;
            while (day.year < 1880 || day.weekday != firstDay) {
                day.Advance();
            }
            int number = 0;
            int numberedYear = 0;
            while (day.year < 2200) {
                DAY week[7];
                for (DAY& each : week) {
                    each = day;
                    day.Advance();
                }
                const int weekYear = week[kDeciding[rule]].year;
                number = weekYear == numberedYear ? number + 1 : 1;
                numberedYear = weekYear;
                if (weekYear < 1890) {
                    continue;
                }
                for (const DAY& each : week) {
                    const CDATE date = each.Date();
                    std::int16_t year = 0;
                    ASSERT_EQ(date.GetWeekNumber(&year, calendar), number) << date << firstDay << rule;
                    ASSERT_EQ(year, weekYear) << date << firstDay << rule;
                    if (rule == 0) {
                        ASSERT_EQ(FirstDateWeek(date, calendar), week[0].Date()) << date << firstDay;
                        ASSERT_EQ(LastDateWeek(date, calendar), week[6].Date()) << date << firstDay;
                    }
                }
            }
        }
    }
}

TEST(WeekNumberTest, IsoWeeksAsTheStandardLibraryReckons) {
    using namespace std::chrono;
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = Calendar(CDATE::Monday, 1);
    for (sys_days day = sys_days(January / 1 / 1900); day < sys_days(January / 1 / 2233); day += days(1)) {
        const sys_days thursday = day - (weekday(day) - Monday) + days(3);
        const year weekYear = year_month_day(thursday).year();
        const auto number = (thursday - sys_days(weekYear / January / 1)).count() / 7 + 1;
        std::int16_t yearOut = 0;
        ASSERT_EQ(FromSysDays(day).GetWeekNumber(&yearOut, calendar), number) << FromSysDays(day);
        ASSERT_EQ(yearOut, int(weekYear)) << FromSysDays(day);
    }
}

TEST(WeekNumberTest, WorkedDates) {
    struct WEEK {
        int number;
        int year;
    };
    // Monday and Sunday first, each under the three rules.
    const struct {
        CDATE date;
        WEEK weeks[2][3];
    } rows[] = {
        {{31, 12, 2024}, {{{1, 2025}, {1, 2025}, {53, 2024}}, {{1, 2025}, {1, 2025}, {52, 2024}}}},
        {{1, 1, 2024}, {{{1, 2024}, {1, 2024}, {1, 2024}}, {{1, 2024}, {1, 2024}, {53, 2023}}}},
        {{1, 1, 2021}, {{{1, 2021}, {53, 2020}, {52, 2020}}, {{1, 2021}, {53, 2020}, {52, 2020}}}},
        {{1, 1, 2023}, {{{1, 2023}, {52, 2022}, {52, 2022}}, {{1, 2023}, {1, 2023}, {1, 2023}}}},
        {{29, 12, 2019}, {{{52, 2019}, {52, 2019}, {51, 2019}}, {{1, 2020}, {1, 2020}, {52, 2019}}}},
        {{31, 12, 1903}, {{{1, 1904}, {53, 1903}, {52, 1903}}, {{1, 1904}, {52, 1903}, {52, 1903}}}},
    };
    for (const auto& row : rows) {
        for (int i = 0; i < 2; ++i) {
            for (int rule = 0; rule < 3; ++rule) {
                std::int16_t year = 0;
                const int number =
                    row.date.GetWeekNumber(&year, Calendar(i == 0 ? CDATE::Monday : CDATE::Sunday, rule));
                EXPECT_EQ(number, row.weeks[i][rule].number) << row.date << i << rule;
                EXPECT_EQ(year, row.weeks[i][rule].year) << row.date << i << rule;
            }
        }
    }
}

TEST(WeekNumberTest, UnknownRulesInvalidDatesAndNullArguments) {
    // An unknown rule is the plain one with the current calendar's weeks, which start on Monday.
    for (const int rule : {-1, 3, 7}) {
        const CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = Calendar(CDATE::Sunday, rule);
        EXPECT_EQ(CDATE(7, 1, 2024).GetWeekNumber(nullptr, calendar), 1);
        EXPECT_EQ(CDATE(8, 1, 2024).GetWeekNumber(nullptr, calendar), 2);
        std::int16_t year = 0;
        EXPECT_EQ(CDATE(31, 12, 2024).GetWeekNumber(&year, calendar), 1);
        EXPECT_EQ(year, 2025);
    }
    EXPECT_EQ(CDATE(7, 1, 2024).GetWeekNumber(nullptr, Calendar(CDATE::Sunday, 0)), 2);
    EXPECT_EQ(CDATE(31, 12, 2024).GetWeekNumber(), 1);
    std::int16_t year = 0;
    EXPECT_EQ(CDATE(30, 2, 2024).GetWeekNumber(&year), 0);
    EXPECT_EQ(year, 2024);
    // A first day of the week beyond the range counts modulo 7.
    for (int firstDay = -14; firstDay <= 20; ++firstDay) {
        const CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = Calendar(firstDay, 1);
        const CSHAREOBJECTPTR<CCALENDARSTRATEGY> same = Calendar((firstDay + 14) % 7, 1);
        for (const CDATE& date : {CDATE(1, 1, 1904), CDATE(6, 3, 2024)}) {
            EXPECT_EQ(FirstDateWeek(date, calendar), FirstDateWeek(date, same)) << firstDay;
            EXPECT_EQ(date.GetWeekNumber(nullptr, calendar), date.GetWeekNumber(nullptr, same)) << firstDay;
        }
    }
}

}  // namespace
