#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <vector>

#include <support/Random.h>
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

// A walk over all days from 1 January of the year 0, once: how many days were open before each. The walks of the
// library from and to any day are then known without walking again.
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
    // A day after the last counts as the last.
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

// Everything that starts from one day or lies between two, by both kinds of days.
void Compare(CCALENDARSTRATEGY* calendar, const WALKED& ouvre, const WALKED& travaille, std::int32_t start, long days,
             std::int32_t end) {
    const CDATE date = WALKED::FromSerial(start);
    const CDATE other = WALKED::FromSerial(end);
    SCOPED_TRACE(::testing::Message() << date << days << other);
    ASSERT_EQ(AddDaysOuvre(date, days, calendar), ouvre.Step(start, days));
    ASSERT_EQ(AddDaysTravaille(date, days, calendar), travaille.Step(start, days));
    if (start < kMax) {
        ASSERT_EQ(NextDateOuvre(date, calendar), ouvre.Step(start, 1));
        ASSERT_EQ(NextDateTravaille(date, calendar), travaille.Step(start, 1));
    }
    if (start > kMin) {
        ASSERT_EQ(PreviousDateOuvre(date, calendar), ouvre.Step(start, -1));
        ASSERT_EQ(PreviousDateTravaille(date, calendar), travaille.Step(start, -1));
    }
    const std::int32_t open = std::abs(ouvre.Before(end) - ouvre.Before(start));
    ASSERT_EQ(date.ComputeDaysOuvre(other, calendar), open);
    ASSERT_EQ(other.ComputeDaysOuvre(date, calendar), open);
    const std::int32_t worked = std::abs(travaille.Before(end) - travaille.Before(start));
    ASSERT_EQ(date.ComputeDaysTravaille(other, calendar), worked);
    ASSERT_EQ(other.ComputeDaysTravaille(date, calendar), worked);
}

TEST(BusinessDaysTest, OwnCalendarsAgreeWithTheWalk) {
    support::RANDOM random(19040101);
    ASSERT_EQ(WALKED::FromSerial(kMin), CDATE::MinDate());
    ASSERT_EQ(WALKED::FromSerial(kMax), CDATE::MaxDate());
    for (int kind = 0; kind < 8; ++kind) {
        // The usual week once, then any week with an open day.
        const unsigned weekdays = kind < 4 ? 0x1FU : static_cast<unsigned>(random.Between(1, 127));
        SCOPED_TRACE(::testing::Message() << "calendar " << kind % 4 << ", weekdays " << weekdays);
        const int lastYear = kind < 4 ? 10200 : 2300;
        const WALKED walked(lastYear, [&](const DAY& day) {
            return (weekdays >> day.weekday & 1U) != 0 && !support::kOwnHolidays[kind % 4]->Has(day);
        });
        const CALENDAR calendar = OwnCalendar(kind % 4);
        for (int day = 0; day < 7; ++day) {
            calendar->SetOuvre(static_cast<CDATE::eDay>(day), static_cast<int>(weekdays >> day & 1U));
        }
        const auto compare = [&](auto... from) { Compare(calendar, walked, walked, from...); };
        for (std::int32_t serial = kMin; serial <= k2101; serial += random.Between(1, 19)) {
            const long direction = random.Between(0, 1) * 2 - 1;
            const long distance = random.Between(13, kind < 4 ? 30000 : 2000);
            compare(serial, -direction * random.Between(1, 12), serial + random.Between(0, 20));
            compare(serial, direction * distance, random.Between(kMin, k2101));
        }
        // Beyond the tabled years, and at and beyond the bounds.
        for (int i = 0; i < 20 && kind < 4; ++i) {
            const std::int32_t start = random.Between(kFirst, kMax);
            for (const std::int32_t most : {40, 2000000}) {
                compare(start, random.Between(1, most), random.Between(kFirst, kMax));
                compare(start + 3000, -random.Between(0, most), random.Between(kFirst, kMax));
            }
        }
        for (int i = 0; i < 9 && kind < 2; ++i) {
            for (const std::int32_t start : {kFirst + i, kMin - 4 + i, kMax - 4 + i}) {
                for (const long days : {0L, 1L, -1L, 2L, -2L, 5L, -5L, 10L, -10L, LONG_MAX, LONG_MIN}) {
                    compare(start, days, start + i);
                }
            }
        }
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(BusinessDaysTest, WorkedExamples) {
    // The week of Whit Monday has one less; 252 business days of 2024 in France.
    EXPECT_EQ(CDATE(20, 5, 2024).ComputeDaysOuvre(CDATE(27, 5, 2024)), 4);
    EXPECT_EQ(CDATE(1, 1, 2024).ComputeDaysTravaille(CDATE(1, 1, 2025)), 252);
    // The start is never counted; no calendar means the current one, the French one.
    EXPECT_EQ(AddDaysOuvre({30, 4, 2024}, 1), CDATE(2, 5, 2024));
    EXPECT_EQ(NextDateOuvre({7, 5, 2024}), CDATE(10, 5, 2024));
    EXPECT_EQ(AddDaysTravaille(CDATE(14, 5, 2024), -5), CDATE(3, 5, 2024));
    // At the bounds, which are reached though they be holidays, and beyond them.
    for (const CDATE& date : {CDATE(31, 12, 9999), CDATE(5, 6, 20000), CDATE(31, 12, 32767)}) {
        EXPECT_EQ(NextDateOuvre(date), CDATE::MaxDate()) << date;
        EXPECT_EQ(NextDateTravaille(date), CDATE::MaxDate()) << date;
    }
    const std::pair<CDATE, CDATE> previous[] = {{{10, 1, 1890}, {9, 1, 1890}},
                                                {{2, 1, 1900}, {1, 1, 1900}},
                                                {{1, 1, 1900}, {29, 12, 1899}},
                                                {{1, 1, 0}, {1, 1, 1900}}};
    for (const auto& [date, expected] : previous) {
        EXPECT_EQ(PreviousDateOuvre(date), expected) << date;
        EXPECT_EQ(PreviousDateTravaille(date), expected) << date;
    }
}

// A calendar of an application's own: each rule its own, or that of the base.
struct RULES {
    std::function<bool(CDATE::eDay)> isOuvre;
    std::function<bool(const CDATE&)> isFerie, isTravaille;
};

class CRULED : public CCALENDARFRENCHSTRATEGY {
public:
    explicit CRULED(RULES rules) : mRules(std::move(rules)) {}
    int IsOuvre(CDATE::eDay day) const override { return mRules.isOuvre ? mRules.isOuvre(day) : BASE::IsOuvre(day); }
    int IsFerie(const CDATE& day) const override { return mRules.isFerie ? mRules.isFerie(day) : BASE::IsFerie(day); }
    int IsTravaille(const CDATE& day) const override {
        return mRules.isTravaille ? mRules.isTravaille(day) : BASE::IsTravaille(day);
    }

private:
    using BASE = CCALENDARFRENCHSTRATEGY;
    RULES mRules;
};

CALENDAR Ruled(RULES rules) { return AdoptObject<CCALENDARSTRATEGY>(new CRULED(std::move(rules))); }

bool IsFrenchOpen(const DAY& day) { return day.weekday < 5 && !kFrench.Has(day); }

TEST(BusinessDaysTest, AStrategyOfAnApplicationDecides) {
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
    support::RANDOM random(19040102);
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << "calendar " << &row - rows);
        const CALENDAR calendar = Ruled(row.rules);
        const WALKED ouvre(2300, row.ouvre);
        const WALKED travaille(2300, row.travaille);
        for (int round = 0; round < 120; ++round) {
            const std::int32_t start = random.Between(kMin, k2101);
            const std::int32_t end = start + random.Between(0, 700);
            ASSERT_NO_FATAL_FAILURE(Compare(calendar, ouvre, travaille, start, random.Between(-70, 70), end));
        }
    }
}

// The French calendar, which counts what it is asked.
class CCOUNTING : public CCALENDARFRENCHSTRATEGY {
public:
    int IsOuvre(CDATE::eDay day) const override {
        ++mAsked;
        return CCALENDARFRENCHSTRATEGY::IsOuvre(day);
    }
    int IsFerie(const CDATE& date) const override {
        ++mHolidaysAsked;
        return CCALENDARFRENCHSTRATEGY::IsFerie(date);
    }
    mutable int mAsked = 0;
    mutable int mHolidaysAsked = 0;
};

TEST(BusinessDaysTest, AStrategyIsAskedOnceForEachDay) {
    const CSHAREOBJECTPTR<CCOUNTING> counting = AdoptObject(new CCOUNTING);
    const CALENDAR calendar(counting.Get());
    const auto asked = [&](auto walk) {
        counting->mAsked = counting->mHolidaysAsked = 0;
        walk();
        return std::pair(counting->mAsked, counting->mHolidaysAsked);
    };
    using ASKED = std::pair<int, int>;
    // Tuesday 30 April 2024; 1 and 8 May, Ascension Thursday 9 May and Whit Monday 20 May are holidays.
    const CDATE date(30, 4, 2024);
    EXPECT_EQ(asked([&] { EXPECT_EQ(NextDateOuvre(date, calendar), CDATE(2, 5, 2024)); }), ASKED(2, 2));
    EXPECT_EQ(asked([&] { EXPECT_EQ(PreviousDateOuvre(date, calendar), CDATE(29, 4, 2024)); }), ASKED(1, 1));
    EXPECT_EQ(asked([&] { EXPECT_EQ(NextDateTravaille(date, calendar), CDATE(2, 5, 2024)); }), ASKED(2, 2));
    EXPECT_EQ(asked([&] { EXPECT_EQ(AddDaysOuvre(date, 6, calendar), CDATE(13, 5, 2024)); }), ASKED(13, 9));
    EXPECT_EQ(asked([&] { EXPECT_EQ(AddDaysOuvre(date, -2, calendar), CDATE(26, 4, 2024)); }), ASKED(4, 2));
    EXPECT_EQ(asked([&] { EXPECT_EQ(AddDaysTravaille(date, 6, calendar), CDATE(13, 5, 2024)); }), ASKED(13, 9));
    EXPECT_EQ(asked([&] { EXPECT_EQ(date.ComputeDaysOuvre({30, 5, 2024}, calendar), 18); }), ASKED(30, 22));
    EXPECT_EQ(asked([&] { EXPECT_EQ(date.IsOuvre(calendar), 1); }), ASKED(1, 1));
    // Where nothing is open, a week says so.
    for (int day = 0; day < CDATE::kDayCount; ++day) {
        counting->SetOuvre(static_cast<CDATE::eDay>(day), 0);
    }
    EXPECT_EQ(asked([&] { EXPECT_EQ(AddDaysOuvre(date, 1, calendar), CDATE::MaxDate()); }), ASKED(7, 0));
    EXPECT_EQ(asked([&] { EXPECT_EQ(PreviousDateOuvre(date, calendar), CDATE::MinDate()); }), ASKED(7, 0));
}

TEST(BusinessDaysTest, NothingOpenMakesNoWalkEndless) {
    const CALENDAR closed = OwnCalendar(1);
    for (int day = 0; day < 7; ++day) {
        closed->SetOuvre(static_cast<CDATE::eDay>(day), 0);
    }
    const CDATE min = CDATE::MinDate();
    const CDATE max = CDATE::MaxDate();
    for (const CALENDAR& calendar : {Ruled({{}, [](const CDATE&) { return true; }, {}}), closed}) {
        EXPECT_EQ(AddDaysOuvre({5, 3, 9024}, LONG_MAX, calendar), max);
        EXPECT_EQ(CDATE(max).ComputeDaysOuvre(min, closed), 0);
        EXPECT_EQ(AddDaysTravaille({5, 3, 2024}, LONG_MIN, calendar), min);
        for (const CDATE& date : {CDATE(5, 3, 2024), min, CDATE(10, 1, 90)}) {
            EXPECT_EQ(PreviousDateOuvre(date, calendar), min) << date;
            EXPECT_EQ(PreviousDateTravaille(date, calendar), min) << date;
        }
        for (const CDATE& date : {CDATE(5, 3, 9024), max, CDATE(1, 1, 20000), CDATE()}) {
            EXPECT_EQ(NextDateOuvre(date, calendar), max) << date;
            EXPECT_EQ(NextDateTravaille(date, calendar), max) << date;
        }
    }
    for (const CDATE& date : {CDATE(5, 3, 2024), CDATE(), CDATE(1, 1, 12000), CDATE(99, 99, 99), min, max}) {
        EXPECT_EQ(AddDaysOuvre(date, 0, closed), max) << date;
        EXPECT_EQ(AddDaysOuvre(date, 3, closed), max) << date;
        EXPECT_EQ(AddDaysOuvre(date, -1, closed), min) << date;
        EXPECT_EQ(PreviousDateOuvre(date, closed), min) << date;
        // Worked days are not looked at beforehand: only the bounds stop the walk.
        EXPECT_EQ(NextDateOuvre(date, closed), max) << date;
        EXPECT_EQ(AddDaysTravaille(date, 0, closed), date) << date;
        EXPECT_EQ(AddDaysTravaille(date, 1, closed), std::max(date, max));
        EXPECT_EQ(AddDaysTravaille(date, -1, closed), std::min(date, min));
    }
    EXPECT_EQ(PreviousDateOuvre({4, 1, 0}, OwnCalendar(0)), CDATE(3, 1, 0)) << "the first year has days too";
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
