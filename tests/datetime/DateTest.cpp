#include <MLCore/datetime/Chrono.h>
#include <MLCore/datetime/Periods.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <sstream>
#include <unordered_set>
#include <vector>

#include <support/Random.h>
#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::Date;
using support::DAY;
using support::IsLeap;
using support::MonthLength;

TEST(DateTest, EveryDayOfTenThousandYears) {
    CDATE yesterday(31, 12, -1);
    for (DAY day; day.year < 10000; day.Advance()) {
        const CDATE date = day.Date();
        ASSERT_EQ(date.ComputeDaysFrom1904(), day.serial) << date;
        CDATE back(99, 99, 99);
        back.From1904(day.serial);
        ASSERT_EQ(back, date) << day.serial;
        ASSERT_EQ(++yesterday, date) << date;
        ASSERT_EQ(AddDays(date, -1) + 1, date) << date;
        ASSERT_TRUE(date.IsDate()) << date;
        ASSERT_EQ(date.GetDayNumber(), day.dayOfYear) << date;
        ASSERT_EQ(date.IsYearBissextile() != 0, IsLeap(day.year)) << date;
        ASSERT_EQ(date.IsEndOfMonth() != 0, day.day == MonthLength(day.month, day.year)) << date;
        // Before 4 January 1904 the remainder keeps its sign.
        const int weekday = day.serial >= 3 || day.weekday == 0 ? day.weekday : day.weekday - 7;
        ASSERT_EQ(date.GetDayOfWeek(), weekday) << date;
        ASSERT_EQ(date.ToSystemTime().wDayOfWeek, (day.weekday + 1) % 7) << date;
    }
}

TEST(DateTest, YearsOfAllSixteenBits) {
    // 400 years are 146097 days, before the year 0 and after 9999 too.
    for (int year = SHRT_MIN; year <= SHRT_MAX; ++year) {
        const int cycles = year >= 0 ? year / 400 : -((-year + 399) / 400);
        const int sameKind = year - cycles * 400;
        for (const int month : {1, 2, 3, 12}) {
            const CDATE date = Date(MonthLength(month, sameKind), month, year);
            const std::int32_t expected = Date(date.GetDay(), month, sameKind).ComputeDaysFrom1904() + cycles * 146097;
            ASSERT_EQ(date.ComputeDaysFrom1904(), expected) << date;
            CDATE back;
            back.From1904(expected);
            ASSERT_EQ(back, date) << date;
            ASSERT_EQ(date.IsDate(), year >= 0 ? 1 : 0) << date;
        }
    }
    const CDATE first(1, 1, -32768);
    const CDATE last(31, 12, 32767);
    EXPECT_EQ(AddDays(first, last - first), last);
    EXPECT_EQ(AddDays(last, first - last), first);
    EXPECT_EQ(AddDays(last, 1), CDATE());
    EXPECT_EQ(AddDays(first, -1), CDATE());
    for (const long serial : {last.ComputeDaysFrom1904() + 1L, first.ComputeDaysFrom1904() - 1L, LONG_MAX, LONG_MIN}) {
        CDATE date(1, 2, 3);
        date.From1904(serial);
        EXPECT_TRUE(date.IsNull()) << serial;
    }
}

// A day out of range counts on from the first of its month; a month out of range has no days of its own: those below
// are January, those above come after the whole year.
TEST(DateTest, SerialDayOfNonsenseFields) {
    for (const int year : {-32768, -401, -400, -4, 1, 100, 1899, 1900, 1903, 1904, 2000, 2023, 2024, 2100, 32767}) {
        for (int month = -5; month <= 20; ++month) {
            const std::int32_t before = month > 12 ? Date(31, 12, year).ComputeDaysFrom1904()
                                                   : Date(1, std::max(month, 1), year).ComputeDaysFrom1904() - 1;
            for (int day = -40; day <= 80; ++day) {
                ASSERT_EQ(Date(day, month, year).ComputeDaysFrom1904(), before + day)
                    << day << ' ' << month << ' ' << year;
                const CDATE moved = AddDays(Date(day, month, year), -17);
                ASSERT_TRUE(moved.ComputeDaysFrom1904() == before + day - 17 ||
                            (moved.IsNull() && std::abs(year) > 32766))
                    << moved << day << ' ' << month << ' ' << year;
                CDATE date = Date(day, month, year);
                date.Validate();
                const int length = month < 1 || month > 12 ? 31 : MonthLength(month, year);
                ASSERT_EQ(date, Date(std::min(day, length), month, year)) << day;
            }
        }
    }
}

// Fields out of range are stored as they are when the program runs, also those of a year in the first place.
TEST(DateTest, AnyFieldsAreStored) {
    volatile std::int16_t year = 2026;
    const CDATE yearFirst(year, 4, 30);
    EXPECT_EQ(yearFirst.GetDay(), 2026);
    EXPECT_EQ(yearFirst.GetMonth(), 4);
    EXPECT_EQ(yearFirst.GetYear(), 30);
    EXPECT_FALSE(yearFirst.IsDate());
    static const CDATE kStored(99, 99, 99);
    EXPECT_EQ(kStored.GetMonth(), 99);
    constexpr CDATE kLast(31, 12, 32767);
    static_assert(CDATE(30, 2, 2026).IsDate() == 0 && kLast.IsDate() == 1);
    using namespace std::chrono;
    static_assert(FromYearMonthDay(year_month_day(2026y, month(13), day(200))).GetMonth() == 13);
}

TEST(DateTest, NamedAndSpecialDates) {
    CDATE earlier(5, 3, 2024);
    EXPECT_EQ(earlier -= 5, CDATE(29, 2, 2024));
    EXPECT_EQ(CDATE::Null(), CDATE());
    EXPECT_EQ(CDATE::Min(), CDATE(1, 1, 1900));
    EXPECT_EQ(CDATE::Max(), CDATE(31, 12, 9999));
    EXPECT_EQ(CDATE::MinDateShort(), CDATE(1, 1, 1928));
    EXPECT_EQ(CDATE::MaxDateShort(), CDATE(31, 12, 2027));
    EXPECT_TRUE(!CDATE());
    EXPECT_TRUE(CDATE().IsNull());
    EXPECT_FALSE(CDATE().IsDate());
    EXPECT_EQ(CDATE().GetDayNumber(), 0);
    EXPECT_FALSE(CDATE(1, 1, 0).IsNull());
    EXPECT_FALSE(CDATE(1, 0, 0).IsNull());
    EXPECT_FALSE(CDATE(29, 2, 1900).IsDate());
    EXPECT_EQ(CDATE(1, 1, 1904).GetDayOfWeek(), -3);
    EXPECT_EQ(CDATE(5, 3, 2024).GetDayOfWeek(), CDATE::Tuesday);
}

TEST(DateTest, MonthsAndYears) {
    for (int month = 1; month <= 12; ++month) {
        for (int months = -60; months <= 60; ++months) {
            const int reached = 2024 * 12 + month - 1 + months;
            const int length = MonthLength(reached % 12 + 1, reached / 12);
            ASSERT_EQ(AddMonths(Date(31, month, 2024), months), Date(length, reached % 12 + 1, reached / 12));
            ASSERT_EQ(AddMonths(Date(15, month, 2024), months), Date(15, reached % 12 + 1, reached / 12));
        }
    }
    EXPECT_EQ(AddMonths({15, 6, 0}, -6), CDATE(15, 12, -1));
    EXPECT_EQ(AddMonths({}, 0), CDATE(0, 12, -1));
    EXPECT_EQ(AddMonths({40, 13, 2024}, 0), CDATE(31, 1, 2025));
    EXPECT_EQ(AddMonths({31, 0, 2024}, 1), CDATE(31, 1, 2024));
    EXPECT_EQ(AddMonths({31, 0, 2024}, 25), CDATE(31, 1, 2026));
    EXPECT_EQ(AddMonths({31, 0, 2024}, -25), CDATE(30, 11, 2021));
    EXPECT_TRUE(AddMonths(CDATE(1, 12, 32767), 1).IsNull());
    EXPECT_TRUE(AddMonths(CDATE(1, 1, -32768), -1).IsNull());
    EXPECT_EQ(AddYears({29, 2, 2024}, 1), CDATE(28, 2, 2025));
    EXPECT_EQ(AddYears({29, 2, 2024}, -4), CDATE(29, 2, 2020));
    for (const long amount : {LONG_MAX, LONG_MIN, LONG_MAX - 1, LONG_MIN + 1}) {
        for (const CDATE& date : {CDATE(1, 1, 2024), CDATE(1, 1, -32768), CDATE(31, 12, 32767),
                                  Date(32767, 32767, 32767), Date(-32768, -32768, -32768)}) {
            CDATE moved = date;
            EXPECT_TRUE(AddDays(date, amount).IsNull());
            EXPECT_TRUE((date - amount).IsNull());
            EXPECT_TRUE((moved -= amount).IsNull());
            EXPECT_TRUE(AddMonths(date, amount).IsNull());
            EXPECT_TRUE(AddYears(date, amount).IsNull());
        }
    }
    CDATE date(31, 12, 1999);
    EXPECT_EQ(date++, CDATE(31, 12, 1999));
    EXPECT_EQ(date--, CDATE(1, 1, 2000));
    EXPECT_EQ(2 + --date, CDATE(1, 1, 2000));
}

TEST(DateTest, CountsAgainstAnotherDate) {
    const support::CALENDAR calendar = support::OwnCalendar(0);
    const CDATE a(15, 11, 2023);
    const CDATE b(2, 3, 2024);
    const CDATE none(30, 2, 2024);
    // 15 days of November, 31 + 31 + 29, and 2; bimestres 6 and 2, quarters 4 and 1, half-years 2 and 1.
    const std::int32_t counts[] = {-1, 108, 15, 4, 2, 1, 1, 1, -1, -1};
    for (int type = -1; type <= 8; ++type) {
        const auto kind = static_cast<CDATE::eTypeEchelonnement>(type);
        const int count = counts[type + 1];
        EXPECT_EQ(a.Echelonnement(b, kind), count) << type;
        EXPECT_EQ(b.Echelonnement(a, kind), count) << type;
        EXPECT_EQ(a.Echelonnement(none, kind), -1) << type;
        EXPECT_EQ(CDATE().Echelonnement(a, kind), -1) << type;
    }
    EXPECT_EQ(a.ComputeDays(none), -1);
    EXPECT_EQ(none.ComputeWeeks(a), -1);
    EXPECT_EQ(none.ComputeDaysOuvre(a), -1);
    EXPECT_EQ(a.ComputeDaysTravaille(none), -1);
    EXPECT_EQ(none.ComputeMonths(a), 3);
    EXPECT_EQ(none.ComputeBimestres(a), 1);
    EXPECT_EQ(none.ComputeTrimestres(a), 1);
    EXPECT_EQ(none.ComputeSemestres(a), 1);
    EXPECT_EQ(none.ComputeYears(a), 1);
    // Week ends passed, counted one by one, for every first day of the week.
    for (int firstDay = 0; firstDay < 7; ++firstDay) {
        calendar->SetFirstDayOfWeek(static_cast<CDATE::eDay>(firstDay));
        for (const CDATE& start : {CDATE(25, 12, 1903), CDATE(1, 1, 1904), CDATE(3, 3, 2024)}) {
            std::int32_t weeks = 0;
            for (CDATE end = start; end < start + 40; ++end) {
                ASSERT_EQ(start.ComputeWeeks(end, calendar), weeks) << start << end << firstDay;
                ASSERT_EQ(end.ComputeWeeks(start, calendar), weeks);
                weeks += (end.GetDayOfWeek() + 8) % 7 == firstDay ? 1 : 0;
            }
        }
    }
}

TEST(DateTest, OrderHashAndStream) {
    const CDATE ascending[] = {{0, 0, -1},     {},           {1, 0, 0},    {1, 1, 0},
                               {31, 12, 1999}, {1, 1, 2000}, {2, 1, 2000}, {1, 2, 2000}};
    std::unordered_set<CDATE> seen;
    for (const CDATE& a : ascending) {
        for (const CDATE& b : ascending) {
            EXPECT_EQ(a < b, &a < &b) << a << b;
            EXPECT_EQ(a > b, &a > &b) << a << b;
            EXPECT_EQ(a <= b, &a <= &b) << a << b;
            EXPECT_EQ(a >= b, &a >= &b) << a << b;
            EXPECT_EQ(a == b, &a == &b) << a << b;
            EXPECT_EQ(a != b, &a != &b) << a << b;
        }
        EXPECT_TRUE(seen.insert(a).second);
        EXPECT_FALSE(seen.insert(a).second);
    }
    std::ostringstream out;
    out << CDATE(5, 3, 2024) << CDATE();
    EXPECT_EQ(out.str(), "CDATE(05032024)CDATE()");
}

TEST(DateTest, PackedForms) {
    EXPECT_EQ(CDATE(5, 3, 2024).ToSDate(), 63589);
    EXPECT_EQ(CDATE(31, 12, 1899).ToSDate(), 33);
    EXPECT_EQ(CDATE().ToSDate(), 0);
    EXPECT_EQ(CDATE(1, 1, 2030).ToSDate(), CDATE(31, 12, 2027).ToSDate());
    EXPECT_EQ(CDATE(std::uint16_t{65535}), CDATE(31, 15, 2027));
    EXPECT_EQ(CDATE(std::uint16_t{0}), CDATE());
    EXPECT_EQ(CDATE(5, 3, 2024).ToLDate(), 2024 * 65536 + 3 * 256 + 5);
    EXPECT_EQ(CDATE(-1), CDATE(255, 255, -1));
    for (const long end : {LONG_MAX, LONG_MIN}) {
        EXPECT_EQ(CDATE(end).IsNull() != 0, sizeof(long) > 4) << end;
    }
    CDATE date(1, 1, 1900);  // day 2 of an OLE Automation date
    for (int oleDay = 2; oleDay < 110000; ++oleDay, ++date) {
        ASSERT_TRUE(date.GetYear() > 2027 || CDATE(date.ToSDate()) == date) << date;
        const auto packed = date.ToLDate();
        ASSERT_EQ(CDATE(static_cast<int>(packed)), date) << date;
        ASSERT_EQ(CDATE(static_cast<long>(packed)), date) << date;
        ASSERT_EQ(date.ToWDate(), oleDay) << date;
        ASSERT_EQ(CDATE(oleDay + 0.25), date) << date;
        const SYSTEMTIME time = date.ToSystemTime();
        ASSERT_EQ(CDATE(time), date) << date;
        ASSERT_EQ(time.wHour + time.wMinute + time.wSecond + time.wMilliseconds, 0) << date;
    }
    // The years 5 and 50 are 2005 and 1950.
    EXPECT_EQ(CDATE(5, 3, 5).ToWDate(), 38416.0);
    EXPECT_EQ(CDATE(1, 1, 50).ToWDate(), 18264.0);
    EXPECT_EQ(CDATE(30, 12, 1899).ToWDate(), 0.0);
    EXPECT_EQ(CDATE(1, 1, 10000).ToWDate(), 0.0);
    EXPECT_EQ(CDATE(-1.25), CDATE(29, 12, 1899));
    EXPECT_EQ(CDATE(2.9999999), CDATE(2, 1, 1900));
    for (const double day : {0.0, -657435.0, 2958466.0, 1e300, -1e300, std::nan(""), HUGE_VAL}) {
        EXPECT_TRUE(CDATE(day).IsNull()) << day;
    }
}

// Whatever the fields, every function comes back, and the sanitizers find nothing to say.
TEST(DateTest, NonsenseFieldsThroughEveryFunction) {
    const support::CALENDAR calendar = support::OwnCalendar(0);
    std::vector<CDATE> dates;
    const int values[] = {SHRT_MIN, -1, 0, 1, 13, 31, 255, 2024, SHRT_MAX};
    for (int i = 0; i < 9 * 9 * 9; ++i) {
        dates.push_back(Date(values[i % 9], values[i / 9 % 9], values[i / 81]));
    }
    support::RANDOM random(20240305);
    for (int i = 0; i < 3000; ++i) {
        dates.push_back(CDATE(static_cast<int>(random())));
    }
    CDATE other(1, 1, 2024);
    for (const CDATE& date : dates) {
        SCOPED_TRACE(testing::PrintToString(date));
        const bool isDate = date.IsDate() != 0;
        std::int16_t year = 1;
        EXPECT_EQ(date.GetWeekNumber(&year, calendar) != 0, isDate);
        EXPECT_TRUE(isDate || year == date.GetYear());
        EXPECT_EQ(date.GetDayNumber() != 0, isDate);
        const bool areDates = isDate && other.IsDate();
        EXPECT_EQ(date.ComputeDays(other) >= 0, areDates) << date;
        EXPECT_EQ(date.ComputeWeeks(other) >= 0, areDates) << date;
        EXPECT_GE(date.ComputeMonths(other), 0);
        EXPECT_GE(date.ComputeBimestres(other), 0);
        EXPECT_GE(date.ComputeYears(other), 0);
        EXPECT_GE(date.ComputeTrimestres(other), 0);
        EXPECT_GE(date.ComputeSemestres(other), 0);
        EXPECT_EQ(date - other, -(other - date));
        EXPECT_EQ(date.IsOuvre(calendar), date.IsTravaille(calendar));
        EXPECT_LT(date.IsFerie(calendar) + date.IsOuvre(calendar), 2);
        EXPECT_EQ((date.GetDayOfWeek() + 8) % 7, date.ToSystemTime().wDayOfWeek);
        EXPECT_EQ(CDATE(static_cast<int>(date.ToLDate())).ToLDate(), date.ToLDate());
        EXPECT_EQ(date.ToString().empty(), date.IsNull());
        EXPECT_EQ(date.ToStringXML().empty(), date.IsNull());
        static_cast<void>(date.IsEndOfMonth() + date.ToSDate() + date.ToWDate());
        static_cast<void>(AddMonths(AddMonths(date, 11), -25) - LastDateMonth(LastDateTrimestre(date)));
        static_cast<void>(LastDateTimeWeek({date, CTIME::Max()}, calendar));
        static_cast<void>(NextDateOuvre(date, calendar) - PreviousDateOuvre(date, calendar));
        other = date;
    }
    for (const CDATE& date : {Date(0, 0, 0), Date(SHRT_MAX, SHRT_MAX, SHRT_MAX), Date(40, 2, 2024), Date(-9, 300, 1899),
                              Date(1, 1, -700), Date(SHRT_MIN, SHRT_MIN, SHRT_MIN)}) {
        for (const long days : {1L, -1L, 40L, -40L, LONG_MAX, LONG_MIN}) {
            EXPECT_EQ(AddDaysOuvre(date, days, calendar), AddDaysTravaille(date, days, calendar)) << date << days;
        }
    }
}

}  // namespace
