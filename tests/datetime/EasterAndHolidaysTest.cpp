#include <MLCore/datetime/CCALENDARBANQUEPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <gtest/gtest.h>

#include <set>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::Date;
using support::DAY;

TEST(EasterTest, AgreesWithAnotherAlgorithm) {
    for (int year = 0; year <= 9999; ++year) {
        const int march = support::EasterInMarch(year);
        const CDATE expected = march > 31 ? Date(march - 31, 4, year) : Date(march, 3, year);
        const CDATE easter = CCALENDARSTRATEGY::GetPaquesDate(static_cast<short>(year));
        ASSERT_EQ(easter, expected);
        ASSERT_EQ((easter.GetDayOfWeek() + 7) % 7, CDATE::Sunday);
    }
}

TEST(EasterTest, PublishedDates) {
    // The earliest and the latest dates possible, the two exceptions of the reckoning (1954, 1981), and recent years.
    const CDATE kDates[] = {{22, 3, 1598}, {22, 3, 1693}, {22, 3, 1761}, {22, 3, 1818}, {25, 4, 1886}, {23, 3, 1913},
                            {25, 4, 1943}, {18, 4, 1954}, {2, 4, 1961},  {19, 4, 1981}, {23, 4, 2000}, {23, 3, 2008},
                            {31, 3, 2024}, {20, 4, 2025}, {5, 4, 2026},  {25, 4, 2038}, {22, 3, 2285}};
    for (const CDATE& date : kDates) {
        EXPECT_EQ(CCALENDARSTRATEGY::GetPaquesDate(date.GetYear()), date);
    }
    for (const int year : {-32768, -1, 32767}) {
        static_cast<void>(CCALENDARSTRATEGY::GetPaquesDate(static_cast<short>(year)));
    }
}

// The movable days of a year as calendars print them.
struct YEAR {
    int year;
    CDATE shroveTuesday, goodFriday, easterMonday, ascension, whitMonday, corpusChristi;
};

const YEAR kYears[] = {
    {1818, {3, 2, 1818}, {20, 3, 1818}, {23, 3, 1818}, {30, 4, 1818}, {11, 5, 1818}, {21, 5, 1818}},
    {1943, {9, 3, 1943}, {23, 4, 1943}, {26, 4, 1943}, {3, 6, 1943}, {14, 6, 1943}, {24, 6, 1943}},
    {2000, {7, 3, 2000}, {21, 4, 2000}, {24, 4, 2000}, {1, 6, 2000}, {12, 6, 2000}, {22, 6, 2000}},
    {2008, {5, 2, 2008}, {21, 3, 2008}, {24, 3, 2008}, {1, 5, 2008}, {12, 5, 2008}, {22, 5, 2008}},
    {2024, {13, 2, 2024}, {29, 3, 2024}, {1, 4, 2024}, {9, 5, 2024}, {20, 5, 2024}, {30, 5, 2024}},
    {2025, {4, 3, 2025}, {18, 4, 2025}, {21, 4, 2025}, {29, 5, 2025}, {9, 6, 2025}, {19, 6, 2025}},
    {2038, {9, 3, 2038}, {23, 4, 2038}, {26, 4, 2038}, {3, 6, 2038}, {14, 6, 2038}, {24, 6, 2038}},
    {2285, {3, 2, 2285}, {20, 3, 2285}, {23, 3, 2285}, {30, 4, 2285}, {11, 5, 2285}, {21, 5, 2285}},
};

TEST(HolidaysTest, EveryDayOfSomeYears) {
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> french = CCALENDARFRENCHSTRATEGY::Create();
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> frenchBank = CCALENDARBANQUESTRATEGY::Create();
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> portuguese = CCALENDARPORTOSTRATEGY::Create();
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> portugueseBank = CCALENDARBANQUEPORTOSTRATEGY::Create();
    using FIXED = std::set<std::pair<int, int>>;
    const FIXED frenchDays = {{1, 1}, {1, 5}, {8, 5}, {14, 7}, {15, 8}, {1, 11}, {11, 11}, {25, 12}};
    FIXED frenchBankDays = frenchDays;
    frenchBankDays.insert({26, 12});
    const FIXED portugueseDays = {{1, 1},  {25, 4}, {1, 5},  {10, 6}, {15, 8},
                                  {5, 10}, {1, 11}, {1, 12}, {8, 12}, {25, 12}};
    DAY day;
    for (const YEAR& year : kYears) {
        const std::set<CDATE> frenchMovable = {year.easterMonday, year.ascension, year.whitMonday};
        std::set<CDATE> frenchBankMovable = frenchMovable;
        frenchBankMovable.insert(year.goodFriday);
        const std::set<CDATE> portugueseMovable = {year.shroveTuesday, year.goodFriday, year.easterMonday,
                                                   year.corpusChristi};
        const struct {
            CCALENDARSTRATEGY& calendar;
            const FIXED& fixed;
            const std::set<CDATE>& movable;
        } calendars[] = {{*french, frenchDays, frenchMovable},
                         {*frenchBank, frenchBankDays, frenchBankMovable},
                         {*portuguese, portugueseDays, portugueseMovable},
                         {*portugueseBank, portugueseDays, portugueseMovable}};
        while (day.year < year.year) {
            day.Advance();
        }
        for (; day.year == year.year; day.Advance()) {
            const CDATE date = day.Date();
            for (const auto& [calendar, fixed, movable] : calendars) {
                const bool isHoliday = fixed.count({day.day, day.month}) != 0 || movable.count(date) != 0;
                ASSERT_EQ(calendar.IsFerie(date), isHoliday ? 1 : 0) << date;
                ASSERT_EQ(date.IsFerie(&calendar), isHoliday ? 1 : 0) << date;
                const int isOpen = day.weekday < 5 && !isHoliday ? 1 : 0;
                ASSERT_EQ(date.IsOuvre(&calendar), isOpen) << date;
                ASSERT_EQ(date.IsTravaille(&calendar), isOpen) << date;
                ASSERT_EQ(calendar.IsTravaille(date), isOpen) << date;
            }
        }
    }
    // A fixed day counts by its day and month, whatever the year.
    EXPECT_EQ(french->IsFerie(CDATE(14, 7, -32768)), 1);
    EXPECT_EQ(french->IsFerie(CDATE(14, 7, 32767)), 1);
    EXPECT_EQ(french->IsFerie(CDATE()), 0);
}

TEST(HolidaysTest, WeekdaySettings) {
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = CCALENDARFRENCHSTRATEGY::Create();
    EXPECT_EQ(calendar->GetFirstDayOfWeek(), CDATE::Monday);
    EXPECT_EQ(calendar->GetFirstWeek(), CCALENDARSTRATEGY::FirstWeekOfFourDays);
    // The weekdays of dates before 4 January 1904 are negative; they name the same flags.
    for (int day = -20; day <= 20; ++day) {
        const bool isOpen = day > -7 && day < 7 && (day + 7) % 7 < 5;
        EXPECT_EQ(calendar->IsOuvre(static_cast<CDATE::eDay>(day)), isOpen ? 1 : 0) << day;
    }
    calendar->SetOuvre(static_cast<CDATE::eDay>(-7), 0);
    calendar->SetOuvre(static_cast<CDATE::eDay>(7), 1);
    calendar->SetOuvre(CDATE::Saturday, 1);
    calendar->SetOuvre(static_cast<CDATE::eDay>(-1), 1);
    EXPECT_EQ(calendar->IsOuvre(CDATE::Sunday), 1);
    EXPECT_EQ(calendar->IsOuvre(CDATE::Monday), 1);
    EXPECT_TRUE(CDATE(6, 4, 2024).IsOuvre(calendar) && CDATE(6, 4, 2024).IsTravaille(calendar));
    EXPECT_FALSE(CDATE(6, 4, 2024).IsOuvre());
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> copy =
        AdoptObject<CCALENDARSTRATEGY>(new CCALENDARFRENCHSTRATEGY(static_cast<CCALENDARFRENCHSTRATEGY&>(*calendar)));
    calendar->SetOuvre(CDATE::Saturday, 0);
    EXPECT_TRUE(copy->IsOuvre(CDATE::Saturday) && !calendar->IsOuvre(CDATE::Saturday));
    EXPECT_EQ(copy->GetUseCount(), 1);
}

}  // namespace
