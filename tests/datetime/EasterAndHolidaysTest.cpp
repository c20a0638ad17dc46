#include <MLCore/datetime/Easter.h>
#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>
#include <gtest/gtest.h>

#include <climits>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::CALENDAR;
using support::Date;
using support::DAY;

TEST(EasterTest, AgreesWithAnotherAlgorithm) {
    for (int year = 0; year <= 9999; ++year) {
        const int march = support::EasterInMarch(year);
        const CDATE expected = march > 31 ? Date(march - 31, 4, year) : Date(march, 3, year);
        ASSERT_EQ(CCALENDARSTRATEGY::GetPaquesDate(static_cast<short>(year)), expected);
        ASSERT_EQ(EasterOf(year), (EASTERSUNDAY{expected.GetDay(), expected.GetMonth()})) << year;
    }
    for (const int year : {-32768, -1, 32767}) {
        static_cast<void>(CCALENDARSTRATEGY::GetPaquesDate(static_cast<short>(year)));
    }
    static_assert(EasterOf(2024) == EASTERSUNDAY{31, 3} && EasterOf(2038) == EASTERSUNDAY{25, 4});
    // The cycle of the Gregorian Easter is 5,700,000 years; no year overflows.
    static_assert(EasterOf(5702024) == EasterOf(2024));
    static_assert(EasterOf(INT_MAX) == EasterOf(INT_MAX % 5700000) && EasterOf(INT_MIN) != EASTERSUNDAY{});
}

// What a row of holidays may hold, so that it cannot be misread later.
TEST(HolidaysTest, PossibleTables) {
    using FIXEDDAY = HOLIDAYCALENDAR::FIXEDDAY;
    const auto isPossible = [](std::initializer_list<FIXEDDAY> days, std::initializer_list<int> offsets) {
        return HOLIDAYCALENDAR::IsPossible({days.begin(), days.size()}, {offsets.begin(), offsets.size()});
    };
    EXPECT_TRUE(isPossible({{28, 2}, {31, 12}, {1, 1}}, {-49, 66}));
    EXPECT_FALSE(isPossible({{29, 2}}, {})) << "not in every year";
    EXPECT_FALSE(isPossible({{31, 4}}, {}));
    EXPECT_FALSE(isPossible({{0, 4}}, {}));
    EXPECT_FALSE(isPossible({{1, 13}}, {}));
    EXPECT_FALSE(isPossible({}, {-50})) << "in January when Easter is early";
    EXPECT_FALSE(isPossible({}, {67})) << "in July when Easter is late";
    EXPECT_TRUE(isPossible({}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
    EXPECT_FALSE(isPossible({{1, 1}}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15})) << "more than fit";
}

TEST(HolidaysTest, PublishedMovableDays) {
    // Shrove Tuesday, Good Friday, Easter Monday, Ascension, Whit Monday, Corpus Christi as calendars print them: for
    // the earliest and the latest Easter, and the two exceptions of the reckoning (1954, 1981).
    const CDATE kYears[][6] = {
        {{3, 2, 1818}, {20, 3, 1818}, {23, 3, 1818}, {30, 4, 1818}, {11, 5, 1818}, {21, 5, 1818}},
        {{9, 3, 1943}, {23, 4, 1943}, {26, 4, 1943}, {3, 6, 1943}, {14, 6, 1943}, {24, 6, 1943}},
        {{13, 2, 2024}, {29, 3, 2024}, {1, 4, 2024}, {9, 5, 2024}, {20, 5, 2024}, {30, 5, 2024}},
        {{2, 3, 1954}, {16, 4, 1954}, {19, 4, 1954}, {27, 5, 1954}, {7, 6, 1954}, {17, 6, 1954}},
        {{3, 3, 1981}, {17, 4, 1981}, {20, 4, 1981}, {28, 5, 1981}, {8, 6, 1981}, {18, 6, 1981}}};
    const char* const kKept[] = {"001110", "011110", "111001", "111001"};
    for (const auto& year : kYears) {
        for (int i = 0; i < 24; ++i) {
            EXPECT_EQ(year[i % 6].IsFerie(support::OwnCalendar(i / 6)), kKept[i / 6][i % 6] - '0') << year[i % 6] << i;
        }
    }
}

TEST(HolidaysTest, EveryDayOfManyYears) {
    for (int kind = 0; kind < 4; ++kind) {
        const CALENDAR calendar = support::OwnCalendar(kind);
        for (DAY day; day.year < 10000; day.Advance()) {
            if (day.year % 97 == 0 || (day.year > 1898 && day.year < 2106)) {
                const CDATE date = day.Date();
                const bool isHoliday = support::kOwnHolidays[kind]->Has(day);
                ASSERT_EQ(date.IsFerie(calendar), isHoliday ? 1 : 0) << date;
                const bool isOpen = day.weekday < 5 && !isHoliday;
                ASSERT_EQ(date.IsOuvre(calendar) != 0, isOpen) << date;
                ASSERT_EQ(date.IsTravaille(calendar) != 0, isOpen) << date;
            }
        }
        // A fixed day counts by its day and month, whatever the year.
        EXPECT_EQ(calendar->IsFerie({1, 5, -32768}), 1);
        EXPECT_EQ(calendar->IsFerie({1, 5, 32767}), 1);
        EXPECT_FALSE(calendar->IsFerie({}));
    }
}

TEST(HolidaysTest, WeekdaySettings) {
    const CALENDAR calendar = support::OwnCalendar(0);
    EXPECT_EQ(calendar->GetFirstDayOfWeek(), CDATE::Monday);
    EXPECT_EQ(calendar->GetFirstWeek(), CCALENDARSTRATEGY::FirstWeekOfFourDays);
    // The weekdays of dates before 4 January 1904 are negative; they name the same flags.
    for (int day = -20; day <= 20; ++day) {
        const bool isOpen = day > -7 && day < 7 && (day + 7) % 7 < 5;
        EXPECT_EQ(calendar->IsOuvre(static_cast<CDATE::eDay>(day)), isOpen ? 1 : 0) << day;
    }
    calendar->SetOuvre(static_cast<CDATE::eDay>(-7), 0);
    calendar->SetOuvre(CDATE::Saturday, 1);
    calendar->SetOuvre(static_cast<CDATE::eDay>(-1), 1);
    EXPECT_TRUE(calendar->IsOuvre(CDATE::Sunday));
    EXPECT_TRUE(calendar->IsOuvre(CDATE::Monday));
    calendar->SetOuvre(CDATE::Monday, 0);
    calendar->SetOuvre(static_cast<CDATE::eDay>(7), 1);
    EXPECT_FALSE(calendar->IsOuvre(CDATE::Monday));
    const CDATE saturday(6, 4, 2024);
    EXPECT_TRUE(saturday.IsOuvre(calendar));
    EXPECT_TRUE(saturday.IsTravaille(calendar));
    EXPECT_FALSE(saturday.IsOuvre());
    const CALENDAR copy =
        AdoptObject<CCALENDARSTRATEGY>(new CCALENDARFRENCHSTRATEGY(static_cast<CCALENDARFRENCHSTRATEGY&>(*calendar)));
    calendar->SetOuvre(CDATE::Saturday, 0);
    EXPECT_TRUE(copy->IsOuvre(CDATE::Saturday));
    EXPECT_FALSE(calendar->IsOuvre(CDATE::Saturday));
    EXPECT_EQ(copy->GetUseCount(), 1);
}

}  // namespace
