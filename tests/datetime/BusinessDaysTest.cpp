#include <MLCore/datetime/CCALENDARBANQUEPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>
#include <string_view>
#include <vector>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::Date;
using support::DAY;

using CALENDAR = CSHAREOBJECTPTR<CCALENDARSTRATEGY>;

constexpr long kMostLong = std::numeric_limits<long>::max();
constexpr long kLeastLong = std::numeric_limits<long>::min();

struct HOLIDAYS {
    std::vector<std::pair<int, int>> fixed;
    std::vector<int> fromEaster;
};

const HOLIDAYS kFrench = {{{1, 1}, {1, 5}, {8, 5}, {14, 7}, {15, 8}, {1, 11}, {11, 11}, {25, 12}}, {1, 39, 50}};
const HOLIDAYS kFrenchBank = {{{1, 1}, {1, 5}, {8, 5}, {14, 7}, {15, 8}, {1, 11}, {11, 11}, {25, 12}, {26, 12}},
                              {-2, 1, 39, 50}};
const HOLIDAYS kPortuguese = {{{1, 1}, {25, 4}, {1, 5}, {10, 6}, {15, 8}, {5, 10}, {1, 11}, {1, 12}, {8, 12}, {25, 12}},
                              {-47, -2, 1, 60}};

CALENDAR OwnCalendar(int kind) {
    switch (kind) {
        case 0:
            return CCALENDARFRENCHSTRATEGY::Create();
        case 1:
            return CCALENDARBANQUESTRATEGY::Create();
        case 2:
            return CCALENDARPORTOSTRATEGY::Create();
        default:
            return CCALENDARBANQUEPORTOSTRATEGY::Create();
    }
}

// A walk over all days from 1 January of the year 0, once: whether each is open, and how many were open before it. The
// walks of the library from and to any day are then known without walking again.
class WALKED {
public:
    WALKED(const HOLIDAYS& holidays, unsigned weekdays, int lastYear) {
        for (DAY day; day.year <= lastYear; day.Advance()) {
            if (day.dayOfYear == 1) {
                const int easter = support::EasterInMarch(day.year) + (support::IsLeap(day.year) ? 60 : 59);
                mMovable.clear();
                for (const int offset : holidays.fromEaster) {
                    mMovable.push_back(easter + offset);
                }
            }
            const bool isHoliday = std::find(holidays.fixed.begin(), holidays.fixed.end(),
                                             std::pair(day.day, day.month)) != holidays.fixed.end() ||
                                   std::find(mMovable.begin(), mMovable.end(), day.dayOfYear) != mMovable.end();
            mBefore.push_back(static_cast<std::int32_t>(mOpen.size()));
            if ((weekdays >> day.weekday & 1U) != 0 && !isHoliday) {
                mOpen.push_back(day.serial);
            }
        }
    }
    [[nodiscard]] bool IsOpen(std::int32_t serial) const { return Before(serial + 1) != Before(serial); }
    [[nodiscard]] std::int32_t Count(std::int32_t first, std::int32_t last) const {
        return Before(last) - Before(first);
    }
    // One day after the other, counting the open ones, and never past the bounds.
    [[nodiscard]] std::int32_t Step(std::int32_t start, long long days) const {
        days = std::clamp(days, -kMost, kMost);
        if (days > 0 && start < kMax) {
            const long long target = Before(start + 1) + days - 1;
            return target < Before(kMax + 1) ? mOpen[static_cast<std::size_t>(target)] : kMax;
        }
        if (days < 0 && start > kMin) {
            const long long target = Before(start) + days;
            return target >= Before(kMin) ? mOpen[static_cast<std::size_t>(target)] : kMin;
        }
        return start;
    }

    static constexpr long long kMost = 4000000;
    static constexpr std::int32_t kFirst = -695421;  // 1 January of the year 0
    static constexpr std::int32_t kMin = -1460;      // 1 January 1900: four years without a leap day
    static constexpr std::int32_t kMax = 2957003;    // 31 December 9999

private:
    [[nodiscard]] std::int32_t Before(std::int32_t serial) const {
        return mBefore[static_cast<std::size_t>(serial - kFirst)];
    }
    std::vector<int> mMovable;
    std::vector<std::int32_t> mOpen;
    std::vector<std::int32_t> mBefore;
};

CDATE FromSerial(std::int32_t serial) {
    CDATE date;
    date.From1904(serial);
    return date;
}

// Everything that starts from one day, by both kinds of days.
void CompareFrom(std::int32_t start, long days, const WALKED& walked, CCALENDARSTRATEGY* calendar) {
    const CDATE date = FromSerial(start);
    const CDATE expected = FromSerial(walked.Step(start, days));
    ASSERT_EQ(AddDaysOuvre(date, days, calendar), expected) << date << ' ' << days;
    ASSERT_EQ(AddDaysTravaille(date, days, calendar), expected) << date << ' ' << days;
}

void CompareBetween(std::int32_t first, std::int32_t last, const WALKED& walked, CCALENDARSTRATEGY* calendar) {
    const CDATE a = FromSerial(first);
    const CDATE b = FromSerial(last);
    const std::int32_t expected = walked.Count(std::min(first, last), std::max(first, last));
    ASSERT_EQ(a.ComputeDaysOuvre(b, calendar), expected) << a << b;
    ASSERT_EQ(b.ComputeDaysOuvre(a, calendar), expected) << a << b;
    ASSERT_EQ(a.ComputeDaysTravaille(b, calendar), expected) << a << b;
}

TEST(BusinessDaysTest, OwnCalendarsAgreeWithTheWalk) {
    ASSERT_EQ(FromSerial(WALKED::kMin), CDATE::MinDate());
    ASSERT_EQ(FromSerial(WALKED::kMax), CDATE::MaxDate());
    const HOLIDAYS* const kHolidays[] = {&kFrench, &kFrenchBank, &kPortuguese, &kPortuguese};
    std::mt19937 random(19040101);
    const auto between = [&](std::int32_t first, std::int32_t last) {
        return first + static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(last - first + 1));
    };
    constexpr std::int32_t k2101 = 71954;  // 1 January 2101
    for (int kind = 0; kind < 8; ++kind) {
        // The usual week once, then any week with an open day.
        const unsigned weekdays = kind < 4 ? 0x1FU : 1U + static_cast<unsigned>(random() % 127U);
        SCOPED_TRACE(::testing::Message() << "calendar " << kind % 4 << ", weekdays " << weekdays);
        const WALKED walked(*kHolidays[kind % 4], weekdays, 10200);
        const CALENDAR calendar = OwnCalendar(kind % 4);
        for (int day = 0; day < 7; ++day) {
            calendar->SetOuvre(static_cast<CDATE::eDay>(day), static_cast<int>(weekdays >> day & 1U));
        }
        for (std::int32_t serial = WALKED::kMin; serial <= k2101; serial += kind < 4 ? 5 : 1) {
            const CDATE date = FromSerial(serial);
            ASSERT_EQ(date.IsOuvre(calendar) != 0, walked.IsOpen(serial)) << date;
            const long direction = between(0, 1) * 2 - 1;
            for (const long days : {direction, -direction * between(2, 12), direction * between(13, 30000)}) {
                CompareFrom(serial, days, walked, calendar);
            }
            CompareBetween(serial, serial + between(0, 20), walked, calendar);
            CompareBetween(serial, between(WALKED::kMin, k2101), walked, calendar);
            if (HasFatalFailure()) {
                return;
            }
        }
        // Beyond the tabled years, and beyond the bounds.
        for (int i = 0; i < 200; ++i) {
            const std::int32_t start = between(WALKED::kFirst, WALKED::kMax + 3000);
            for (const long days : {0L, long{between(1, 40)}, -long{between(1, 40)}, long{between(41, 2000000)},
                                    -long{between(41, 2000000)}}) {
                CompareFrom(start, days, walked, calendar);
            }
            CompareBetween(start, between(WALKED::kFirst, WALKED::kMax), walked, calendar);
            if (HasFatalFailure()) {
                return;
            }
        }
        for (const std::int32_t bound : {WALKED::kFirst, WALKED::kMin, WALKED::kMax}) {
            for (std::int32_t start = std::max(bound - 4, WALKED::kFirst); start <= bound + 4; ++start) {
                for (const long days : {0L, 1L, -1L, 2L, -2L, 5L, -5L, 10L, -10L, kMostLong, kLeastLong}) {
                    CompareFrom(start, days, walked, calendar);
                }
            }
        }
    }
}

TEST(BusinessDaysTest, AMondayToTheNext) {
    const CALENDAR calendar = OwnCalendar(0);
    EXPECT_EQ(CDATE(3, 6, 2024).ComputeDaysOuvre(CDATE(10, 6, 2024), calendar), 5);
    EXPECT_EQ(CDATE(10, 6, 2024).ComputeDaysOuvre(CDATE(3, 6, 2024), calendar), 5);
    // The week of Whit Monday has one less; 252 business days of 2024 in France.
    EXPECT_EQ(CDATE(20, 5, 2024).ComputeDaysOuvre(CDATE(27, 5, 2024), calendar), 4);
    EXPECT_EQ(CDATE(1, 1, 2024).ComputeDaysOuvre(CDATE(1, 1, 2025), calendar), 252);
    // The start is never counted; null means the current calendar, the French one.
    EXPECT_EQ(AddDaysOuvre(CDATE(30, 4, 2024), 1), CDATE(2, 5, 2024));
    EXPECT_EQ(AddDaysOuvre(CDATE(5, 5, 2024), 5), CDATE(14, 5, 2024));
    EXPECT_EQ(AddDaysTravaille(CDATE(14, 5, 2024), -5), CDATE(3, 5, 2024));
    EXPECT_EQ(NextDateOuvre(CDATE(7, 5, 2024)), CDATE(10, 5, 2024));
    EXPECT_EQ(PreviousDateTravaille(CDATE(10, 5, 2024)), CDATE(7, 5, 2024));
}

TEST(BusinessDaysTest, AllWeekdaysClosed) {
    for (int kind = 0; kind < 4; ++kind) {
        const CALENDAR calendar = OwnCalendar(kind);
        for (int day = 0; day < 7; ++day) {
            calendar->SetOuvre(static_cast<CDATE::eDay>(day), 0);
        }
        for (const CDATE& date : {CDATE(5, 3, 2024), CDATE(), CDATE(1, 1, 1), CDATE(1, 1, 12000), CDATE(99, 99, 99),
                                  CDATE::MinDate(), CDATE::MaxDate()}) {
            EXPECT_EQ(AddDaysOuvre(date, 0, calendar), CDATE::MaxDate());
            EXPECT_EQ(AddDaysOuvre(date, 3, calendar), CDATE::MaxDate());
            EXPECT_EQ(AddDaysOuvre(date, -1, calendar), CDATE::MinDate());
            EXPECT_EQ(NextDateOuvre(date, calendar), CDATE::MaxDate());
            EXPECT_EQ(PreviousDateOuvre(date, calendar), CDATE::MinDate());
            // Worked days are not looked at beforehand: only the bounds stop the walk.
            EXPECT_EQ(AddDaysTravaille(date, 0, calendar), date);
            EXPECT_EQ(AddDaysTravaille(date, 1, calendar), date < CDATE::MaxDate() ? CDATE::MaxDate() : date);
            EXPECT_EQ(AddDaysTravaille(date, -1, calendar), date > CDATE::MinDate() ? CDATE::MinDate() : date);
        }
        EXPECT_EQ(NextDateTravaille(CDATE(5, 3, 2024), calendar), CDATE::MaxDate());
        EXPECT_EQ(PreviousDateTravaille(CDATE(5, 3, 2024), calendar), CDATE::MinDate());
        // On the bound and beyond it, leaving the years 0 to 9999 ends the walk.
        EXPECT_EQ(NextDateTravaille(CDATE::MaxDate(), calendar), CDATE::MaxDate());
        EXPECT_EQ(PreviousDateTravaille(CDATE::MinDate(), calendar), CDATE::MinDate());
        EXPECT_EQ(PreviousDateTravaille(CDATE(10, 1, 1890), calendar), CDATE::MinDate());
        EXPECT_EQ(CDATE(1, 1, 0).ComputeDaysOuvre(CDATE(31, 12, 9999), calendar), 0);
    }
}

TEST(BusinessDaysTest, NextAndPreviousAtTheBounds) {
    const CALENDAR calendar = OwnCalendar(0);
    EXPECT_EQ(NextDateOuvre(CDATE(30, 12, 9999), calendar), CDATE(31, 12, 9999));  // a Friday
    EXPECT_EQ(NextDateOuvre(CDATE(31, 12, 9999), calendar), CDATE(31, 12, 9999));
    EXPECT_EQ(NextDateTravaille(CDATE(5, 6, 20000), calendar), CDATE(31, 12, 9999));
    EXPECT_EQ(PreviousDateOuvre(CDATE(10, 1, 1890), calendar), CDATE(9, 1, 1890));
    EXPECT_EQ(PreviousDateOuvre(CDATE(2, 1, 1900), calendar), CDATE(1, 1, 1900));  // the bound, though a holiday
    EXPECT_EQ(PreviousDateOuvre(CDATE(1, 1, 1900), calendar), CDATE(29, 12, 1899));
    EXPECT_EQ(PreviousDateOuvre(CDATE(1, 1, 0), calendar), CDATE(1, 1, 1900));
    EXPECT_EQ(NextDateOuvre(CDATE(31, 12, 32767), calendar), CDATE(31, 12, 9999));
    // Both ways over every day of some years, the first ones with their negative weekdays among them.
    for (const int firstYear : {1899, 2023}) {
        const WALKED walked(kFrench, 0x1F, firstYear + 6);
        for (std::int32_t day = Date(1, 2, firstYear) - CDATE(1, 1, 1904);
             day < Date(1, 1, firstYear + 5) - CDATE(1, 1, 1904); ++day) {
            std::int32_t next = day + 1;
            while (!walked.IsOpen(next)) {
                ++next;
            }
            std::int32_t previous = day - 1;
            while (!walked.IsOpen(previous) && previous != WALKED::kMin) {
                --previous;
            }
            ASSERT_EQ(NextDateOuvre(FromSerial(day), calendar), FromSerial(next));
            ASSERT_EQ(NextDateTravaille(FromSerial(day), calendar), FromSerial(next));
            ASSERT_EQ(PreviousDateOuvre(FromSerial(day), calendar), FromSerial(previous));
            ASSERT_EQ(PreviousDateTravaille(FromSerial(day), calendar), FromSerial(previous));
        }
    }
}

// Calendars of an application's own.

class CODDCALENDAR : public CCALENDARSTRATEGY {
public:
    int IsOuvre(CDATE::eDay day) const override { return day == CDATE::Sunday || day == CDATE::Tuesday ? 1 : 0; }
    int IsFerie(const CDATE& date) const override { return date.GetDay() % 5 == 0 ? 1 : 0; }
    int IsTravaille(const CDATE& date) const override { return date.GetMonth() == 2 && date.GetDay() > 9 ? 1 : 0; }
};

class CMOREHOLIDAYS : public CCALENDARFRENCHSTRATEGY {
public:
    int IsFerie(const CDATE& date) const override {
        return date.GetDay() == 2 ? 1 : CCALENDARFRENCHSTRATEGY::IsFerie(date);
    }
};

class CWORKEDSUNDAYS : public CCALENDARFRENCHSTRATEGY {
public:
    int IsTravaille(const CDATE& date) const override { return (date.GetDayOfWeek() + 7) % 7 == CDATE::Sunday ? 1 : 0; }
};

class COPENSUNDAYS : public CCALENDARFRENCHSTRATEGY {
public:
    int IsOuvre(CDATE::eDay day) const override { return day == CDATE::Sunday ? 1 : 0; }
};

class CFRENCHBYANOTHERNAME : public CCALENDARFRENCHSTRATEGY {};

class CALWAYSHOLIDAY : public CCALENDARSTRATEGY {
public:
    int IsFerie(const CDATE&) const override { return 1; }
};

template <class T>
CALENDAR Adopt() {
    return AdoptObject<CCALENDARSTRATEGY>(new T);
}

TEST(BusinessDaysTest, AStrategyOfOnesOwnGetsWhatItSays) {
    const struct {
        CALENDAR calendar;
        bool (*isOuvre)(const CDATE& date, int weekday);
        bool (*isTravaille)(const CDATE& date, int weekday);
    } rows[] = {
        {Adopt<CODDCALENDAR>(),
         [](const CDATE& date, int weekday) { return (weekday == 6 || weekday == 1) && date.GetDay() % 5 != 0; },
         [](const CDATE& date, int) { return date.GetMonth() == 2 && date.GetDay() > 9; }},
        {Adopt<CMOREHOLIDAYS>(), [](const CDATE& date, int) { return date.GetDay() != 2 && date.IsOuvre() != 0; },
         [](const CDATE& date, int) { return date.GetDay() != 2 && date.IsOuvre() != 0; }},
        {Adopt<CWORKEDSUNDAYS>(), [](const CDATE& date, int) { return date.IsOuvre() != 0; },
         [](const CDATE&, int weekday) { return weekday == 6; }},
        {Adopt<COPENSUNDAYS>(), [](const CDATE& date, int weekday) { return weekday == 6 && date.IsFerie() == 0; },
         [](const CDATE& date, int weekday) { return weekday == 6 && date.IsFerie() == 0; }},
        {Adopt<CFRENCHBYANOTHERNAME>(), [](const CDATE& date, int) { return date.IsOuvre() != 0; },
         [](const CDATE& date, int) { return date.IsOuvre() != 0; }},
    };
    std::mt19937 random(7);
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << "calendar " << &row - rows);
        for (int round = 0; round < 250; ++round) {
            // The told walk: from the end, the start last, and a day beyond it.
            const CDATE start = CDATE(1, 2, 1900) + static_cast<long>(random() % 73000);
            const long distance = 1 + static_cast<long>(random() % 700);
            for (const auto& [isCounted, isOuvre] : {std::pair(row.isOuvre, true), std::pair(row.isTravaille, false)}) {
                std::int32_t count = 0;
                CDATE date = start;
                CDATE lastCounted = start;
                CDATE firstCounted;
                std::int32_t after = 0;
                for (long day = 0; day <= distance; ++day, ++date) {
                    if (isCounted(date, (date.GetDayOfWeek() + 7) % 7)) {
                        count += day < distance ? 1 : 0;
                        if (day > 0) {
                            ++after;
                            lastCounted = date;
                            firstCounted = firstCounted.IsNull() ? date : firstCounted;
                        }
                    }
                }
                const CDATE end = start + distance;
                CCALENDARSTRATEGY* const calendar = row.calendar;
                ASSERT_EQ(isOuvre ? start.ComputeDaysOuvre(end, calendar) : end.ComputeDaysTravaille(start, calendar),
                          count)
                    << start << end;
                ASSERT_EQ(isOuvre ? AddDaysOuvre(start, after, calendar) : AddDaysTravaille(start, after, calendar),
                          lastCounted)
                    << start << after;
                if (after > 0) {
                    ASSERT_EQ(isOuvre ? NextDateOuvre(start, calendar) : NextDateTravaille(start, calendar),
                              firstCounted);
                    const CDATE beyond = end + 1;
                    ASSERT_EQ(isOuvre ? PreviousDateOuvre(beyond, calendar) : PreviousDateTravaille(beyond, calendar),
                              lastCounted);
                    ASSERT_EQ(
                        isOuvre ? AddDaysOuvre(beyond, -after, calendar) : AddDaysTravaille(beyond, -after, calendar),
                        firstCounted);
                }
            }
        }
    }
}

TEST(BusinessDaysTest, NoStrategyMakesAWalkEndless) {
    const CALENDAR calendar = Adopt<CALWAYSHOLIDAY>();
    for (const CDATE& date : {CDATE(5, 3, 2024), CDATE::MinDate(), CDATE::MaxDate()}) {
        EXPECT_EQ(AddDaysOuvre(date, kMostLong, calendar), CDATE::MaxDate());
        EXPECT_EQ(AddDaysTravaille(date, kLeastLong, calendar), CDATE::MinDate());
        EXPECT_EQ(NextDateTravaille(date, calendar), CDATE::MaxDate());
        EXPECT_EQ(PreviousDateOuvre(date, calendar), CDATE::MinDate());
    }
    EXPECT_EQ(PreviousDateOuvre(CDATE(10, 1, 1890), calendar), CDATE::MinDate());
    EXPECT_EQ(NextDateOuvre(CDATE(1, 1, 20000), calendar), CDATE::MaxDate());
    EXPECT_EQ(NextDateOuvre(CDATE(), calendar), CDATE::MaxDate());
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
