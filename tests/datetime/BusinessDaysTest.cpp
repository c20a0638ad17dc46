#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <random>
#include <vector>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::CALENDAR;
using support::DAY;
using support::kFrench;
using support::OwnCalendar;

constexpr std::int32_t kFirst = -695421;  // 1 January of the year 0
constexpr std::int32_t kMin = -1460;      // 1 January 1900: four years without a leap day
constexpr std::int32_t kMax = 2957003;    // 31 December 9999
constexpr std::int32_t k2101 = 71954;     // 1 January 2101

// A walk over all days from 1 January of the year 0, once: how many days were open before each. The walks of the library
// from and to any day are then known without walking again.
class WALKED {
public:
    WALKED(int lastYear, const std::function<bool(const DAY&)>& isOpen) {
        for (DAY day; day.year <= lastYear; day.Advance()) {
            mBefore.push_back(static_cast<std::int32_t>(mOpen.size()));
            if (isOpen(day)) {
                mOpen.push_back(day.serial);
            }
        }
    }
    // Of a day behind the last, as of the last.
    [[nodiscard]] std::int32_t Before(std::int32_t serial) const {
        return mBefore[std::min(static_cast<std::size_t>(serial - kFirst), mBefore.size() - 1)];
    }
    // One day after the other, counting the open ones, and never past the bounds.
    [[nodiscard]] CDATE Step(std::int32_t start, long days) const {
        if (days == 0 || (days > 0 ? start >= kMax : start <= kMin)) {
            return FromSerial(start);
        }
        const long long target = (days > 0 ? Before(start + 1) - 1LL : Before(start)) + std::clamp(days, -kMost, kMost);
        const bool isFound = days > 0 ? target < Before(kMax + 1) : target >= Before(kMin);
        return FromSerial(isFound ? mOpen[static_cast<std::size_t>(target)] : days > 0 ? kMax : kMin);
    }
    static CDATE FromSerial(std::int32_t serial) {
        CDATE date;
        date.From1904(serial);
        return date;
    }

private:
    static constexpr long kMost = 4000000;
    std::vector<std::int32_t> mOpen;
    std::vector<std::int32_t> mBefore;
};

// Everything that starts from one day, by both kinds of days.
void Compare(CCALENDARSTRATEGY* calendar, const WALKED& ouvre, const WALKED& travaille, std::int32_t start, long days) {
    const CDATE date = WALKED::FromSerial(start);
    ASSERT_EQ(AddDaysOuvre(date, days, calendar), ouvre.Step(start, days)) << date << days;
    ASSERT_EQ(AddDaysTravaille(date, days, calendar), travaille.Step(start, days)) << date << days;
    if (start < kMax) {
        ASSERT_EQ(NextDateOuvre(date, calendar), ouvre.Step(start, 1)) << date;
        ASSERT_EQ(NextDateTravaille(date, calendar), travaille.Step(start, 1)) << date;
    }
    if (start > kMin) {
        ASSERT_EQ(PreviousDateOuvre(date, calendar), ouvre.Step(start, -1)) << date;
        ASSERT_EQ(PreviousDateTravaille(date, calendar), travaille.Step(start, -1)) << date;
    }
}

void CompareBetween(CCALENDARSTRATEGY* calendar, const WALKED& ouvre, const WALKED& travaille, std::int32_t first,
                    std::int32_t last) {
    const CDATE a = WALKED::FromSerial(first);
    const CDATE b = WALKED::FromSerial(last);
    const std::int32_t open = std::abs(ouvre.Before(last) - ouvre.Before(first));
    ASSERT_TRUE(a.ComputeDaysOuvre(b, calendar) == open && b.ComputeDaysOuvre(a, calendar) == open) << a << b;
    const std::int32_t worked = std::abs(travaille.Before(last) - travaille.Before(first));
    ASSERT_TRUE(a.ComputeDaysTravaille(b, calendar) == worked && b.ComputeDaysTravaille(a, calendar) == worked)
        << a << b;
}

std::int32_t RandomBetween(std::int32_t first, std::int32_t last) {
    static std::mt19937 random(19040101);
    return first + static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(last - first + 1));
}

TEST(BusinessDaysTest, OwnCalendarsAgreeWithTheWalk) {
    ASSERT_TRUE(WALKED::FromSerial(kMin) == CDATE::MinDate() && WALKED::FromSerial(kMax) == CDATE::MaxDate());
    for (int kind = 0; kind < 8; ++kind) {
        // The usual week once, then any week with an open day.
        const unsigned weekdays = kind < 4 ? 0x1FU : static_cast<unsigned>(RandomBetween(1, 127));
        SCOPED_TRACE(::testing::Message() << "calendar " << kind % 4 << ", weekdays " << weekdays);
        const int lastYear = kind < 4 ? 10200 : 2300;
        const WALKED walked(lastYear, [&](const DAY& day) {
            return (weekdays >> day.weekday & 1U) != 0 && !support::kOwnHolidays[kind % 4]->Has(day);
        });
        const CALENDAR calendar = OwnCalendar(kind % 4);
        for (int day = 0; day < 7; ++day) {
            calendar->SetOuvre(static_cast<CDATE::eDay>(day), static_cast<int>(weekdays >> day & 1U));
        }
        const auto compare = [&](std::int32_t start, long days) {
            ASSERT_NO_FATAL_FAILURE(Compare(calendar, walked, walked, start, days));
        };
        for (std::int32_t serial = kMin; serial <= k2101; serial += RandomBetween(1, 19)) {
            const long direction = RandomBetween(0, 1) * 2 - 1;
            ASSERT_NO_FATAL_FAILURE(compare(serial, -direction * RandomBetween(1, 12)));
            ASSERT_NO_FATAL_FAILURE(compare(serial, direction * RandomBetween(13, kind < 4 ? 30000 : 2000)));
            for (const std::int32_t other : {serial + RandomBetween(0, 20), RandomBetween(kMin, k2101)}) {
                ASSERT_NO_FATAL_FAILURE(CompareBetween(calendar, walked, walked, serial, other));
            }
        }
        // Beyond the tabled years, and at and beyond the bounds.
        for (int i = 0; i < 50 && kind < 4; ++i) {
            const std::int32_t start = RandomBetween(kFirst, kMax + 3000);
            for (const long days : {0, RandomBetween(1, 40), -RandomBetween(1, 40), RandomBetween(41, 2000000),
                                    -RandomBetween(41, 2000000)}) {
                ASSERT_NO_FATAL_FAILURE(compare(start, days));
            }
            ASSERT_NO_FATAL_FAILURE(CompareBetween(calendar, walked, walked, start, RandomBetween(kFirst, kMax)));
        }
        for (int i = 0; i < 9 && kind < 4; ++i) {
            for (const std::int32_t start : {kFirst + i, kMin - 4 + i, kMax - 4 + i}) {
                for (const long days : {0L, 1L, -1L, 2L, -2L, 5L, -5L, 10L, -10L, LONG_MAX, LONG_MIN}) {
                    ASSERT_NO_FATAL_FAILURE(compare(start, days));
                }
            }
        }
    }
}

TEST(BusinessDaysTest, WorkedExamples) {
    const CALENDAR calendar = OwnCalendar(0);
    EXPECT_EQ(CDATE(3, 6, 2024).ComputeDaysOuvre(CDATE(10, 6, 2024), calendar), 5);
    // The week of Whit Monday has one less; 252 business days of 2024 in France.
    EXPECT_EQ(CDATE(20, 5, 2024).ComputeDaysOuvre(CDATE(27, 5, 2024), calendar), 4);
    EXPECT_EQ(CDATE(1, 1, 2024).ComputeDaysTravaille(CDATE(1, 1, 2025), calendar), 252);
    // The start is never counted; null means the current calendar, the French one.
    EXPECT_EQ(AddDaysOuvre(CDATE(30, 4, 2024), 1), CDATE(2, 5, 2024));
    EXPECT_EQ(AddDaysTravaille(CDATE(14, 5, 2024), -5), CDATE(3, 5, 2024));
    EXPECT_EQ(NextDateOuvre(CDATE(7, 5, 2024)), CDATE(10, 5, 2024));
    EXPECT_EQ(PreviousDateTravaille(CDATE(10, 5, 2024)), CDATE(7, 5, 2024));
    // At the bounds, which are reached though they be holidays, and beyond them.
    EXPECT_EQ(NextDateOuvre(CDATE(31, 12, 9999), calendar), CDATE(31, 12, 9999));
    EXPECT_EQ(NextDateTravaille(CDATE(5, 6, 20000), calendar), CDATE(31, 12, 9999));
    EXPECT_EQ(NextDateOuvre(CDATE(31, 12, 32767), calendar), CDATE(31, 12, 9999));
    EXPECT_EQ(PreviousDateOuvre(CDATE(10, 1, 1890), calendar), CDATE(9, 1, 1890));
    EXPECT_EQ(PreviousDateOuvre(CDATE(2, 1, 1900), calendar), CDATE(1, 1, 1900));
    EXPECT_EQ(PreviousDateTravaille(CDATE(1, 1, 1900), calendar), CDATE(29, 12, 1899));
    EXPECT_EQ(PreviousDateOuvre(CDATE(1, 1, 0), calendar), CDATE(1, 1, 1900));
}

TEST(BusinessDaysTest, AllWeekdaysClosed) {
    const CALENDAR calendar = OwnCalendar(1);
    for (int day = 0; day < 7; ++day) {
        calendar->SetOuvre(static_cast<CDATE::eDay>(day), 0);
    }
    const CDATE min = CDATE::MinDate();
    const CDATE max = CDATE::MaxDate();
    for (const CDATE& date :
         {CDATE(5, 3, 2024), CDATE(), CDATE(1, 1, 1), CDATE(1, 1, 12000), CDATE(99, 99, 99), min, max}) {
        EXPECT_TRUE(AddDaysOuvre(date, 0, calendar) == max && AddDaysOuvre(date, 3, calendar) == max) << date;
        EXPECT_TRUE(AddDaysOuvre(date, -1, calendar) == min && PreviousDateOuvre(date, calendar) == min) << date;
        EXPECT_EQ(NextDateOuvre(date, calendar), max);
        // Worked days are not looked at beforehand: only the bounds stop the walk.
        EXPECT_EQ(AddDaysTravaille(date, 0, calendar), date);
        EXPECT_EQ(AddDaysTravaille(date, 1, calendar), std::max(date, max));
        EXPECT_EQ(AddDaysTravaille(date, -1, calendar), std::min(date, min));
    }
    for (const CDATE& date : {CDATE(5, 3, 9024), max}) {
        EXPECT_EQ(NextDateTravaille(date, calendar), max);
    }
    for (const CDATE& date : {CDATE(5, 3, 2024), min, CDATE(10, 1, 90)}) {
        EXPECT_EQ(PreviousDateTravaille(date, calendar), min);
    }
    EXPECT_EQ(CDATE(1, 1, 0).ComputeDaysOuvre(CDATE(31, 12, 9999), calendar), 0);
}

// Calendars of an application's own: each rule overridden, or that of the base.
struct RULES {
    std::function<bool(CDATE::eDay)> isOuvre;
    std::function<bool(const CDATE&)> isFerie;
    std::function<bool(const CDATE&)> isTravaille;
};

class CRULED : public CCALENDARFRENCHSTRATEGY {
public:
    explicit CRULED(RULES rules) : mRules(std::move(rules)) {}
    int IsOuvre(CDATE::eDay day) const override { return mRules.isOuvre ? mRules.isOuvre(day) : BASE::IsOuvre(day); }
    int IsFerie(const CDATE& date) const override {
        return mRules.isFerie ? mRules.isFerie(date) : BASE::IsFerie(date);
    }
    int IsTravaille(const CDATE& date) const override {
        return mRules.isTravaille ? mRules.isTravaille(date) : BASE::IsTravaille(date);
    }

private:
    using BASE = CCALENDARFRENCHSTRATEGY;
    RULES mRules;
};

CALENDAR Ruled(RULES rules) { return AdoptObject<CCALENDARSTRATEGY>(new CRULED(std::move(rules))); }

bool IsFrenchOpen(const DAY& day) { return day.weekday < 5 && !kFrench.Has(day); }

TEST(BusinessDaysTest, AStrategyOfOnesOwnGetsWhatItSays) {
    const struct {
        RULES rules;
        std::function<bool(const DAY&)> ouvre, travaille;
    } rows[] = {{{}, IsFrenchOpen, IsFrenchOpen},
                {{[](CDATE::eDay day) { return day == CDATE::Sunday || day == CDATE::Tuesday; },
                  [](const CDATE& date) { return date.GetDay() % 5 == 0; },
                  [](const CDATE& date) { return date.GetMonth() == 2 && date.GetDay() > 9; }},
                 [](const DAY& day) { return (day.weekday == 6 || day.weekday == 1) && day.day % 5 != 0; },
                 [](const DAY& day) { return day.month == 2 && day.day > 9; }},
                {{{}, [](const CDATE& date) { return date.GetDay() == 2 || date.IsFerie() != 0; }, {}},
                 [](const DAY& day) { return day.day != 2 && IsFrenchOpen(day); },
                 [](const DAY& day) { return day.day != 2 && IsFrenchOpen(day); }},
                {{{}, {}, [](const CDATE& date) { return (date.GetDayOfWeek() + 7) % 7 == CDATE::Sunday; }},
                 IsFrenchOpen,
                 [](const DAY& day) { return day.weekday == 6; }},
                {{[](CDATE::eDay day) { return day == CDATE::Sunday; }, {}, {}},
                 [](const DAY& day) { return day.weekday == 6 && !kFrench.Has(day); },
                 [](const DAY& day) { return day.weekday == 6 && !kFrench.Has(day); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << "calendar " << &row - rows);
        const CALENDAR calendar = Ruled(row.rules);
        const WALKED ouvre(2300, row.ouvre);
        const WALKED travaille(2300, row.travaille);
        for (int round = 0; round < 120; ++round) {
            const std::int32_t start = RandomBetween(kMin, k2101);
            ASSERT_NO_FATAL_FAILURE(Compare(calendar, ouvre, travaille, start, RandomBetween(-70, 70)));
            ASSERT_NO_FATAL_FAILURE(CompareBetween(calendar, ouvre, travaille, start, start + RandomBetween(0, 700)));
        }
    }
}

TEST(BusinessDaysTest, NoStrategyMakesAWalkEndless) {
    const CALENDAR calendar = Ruled({{}, [](const CDATE&) { return true; }, {}});
    EXPECT_EQ(AddDaysOuvre(CDATE(5, 3, 9024), LONG_MAX, calendar), CDATE::MaxDate());
    EXPECT_EQ(AddDaysTravaille(CDATE(5, 3, 2024), LONG_MIN, calendar), CDATE::MinDate());
    EXPECT_EQ(NextDateTravaille(CDATE(5, 3, 9024), calendar), CDATE::MaxDate());
    for (const CDATE& date : {CDATE(5, 3, 2024), CDATE::MinDate(), CDATE(10, 1, 90)}) {
        EXPECT_EQ(PreviousDateOuvre(date, calendar), CDATE::MinDate());
    }
    for (const CDATE& date : {CDATE::MaxDate(), CDATE(1, 1, 20000), CDATE()}) {
        EXPECT_EQ(NextDateOuvre(date, calendar), CDATE::MaxDate());
    }
}

TEST(BusinessDaysTest, TheCurrentCalendarIsTheManagersAndShared) {
    CCALENDARMANAGER* const manager = CCALENDARMANAGER::GetInstance();
    const CALENDAR before = manager->GetCalendar();
    const CALENDAR portuguese = OwnCalendar(2);
    const auto count = portuguese->GetUseCount();
    manager->SetCalendar(*portuguese);
    EXPECT_EQ(manager->GetCalendar(), portuguese.Get());
    EXPECT_EQ(portuguese->GetUseCount(), count + 1);
    EXPECT_TRUE(CDATE(10, 6, 2024).IsFerie());
    EXPECT_EQ(NextDateOuvre(CDATE(7, 6, 2024)), CDATE(11, 6, 2024));
    EXPECT_EQ(CDATE(3, 6, 2024).ComputeDaysOuvre(CDATE(17, 6, 2024)), 9);
    manager->SetCalendar(*before);
    EXPECT_EQ(portuguese->GetUseCount(), count);
    EXPECT_FALSE(CDATE(10, 6, 2024).IsFerie());
}

}  // namespace
