#include <MLCore/datetime/detail/BusinessDays.h>

#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>
#include <MLCore/datetime/detail/OwnCalendars.h>
#include <MLCore/datetime/detail/SerialDay.h>

#include <algorithm>
#include <bit>
#include <limits>

namespace MLCore::businessdays {

namespace {

constexpr std::int32_t kMinDate = serialday::FromFields(1, 1, 1900);
constexpr std::int32_t kMaxDate = serialday::FromFields(31, 12, 9999);

CDATE DateOf(std::int32_t serial) noexcept {
    CDATE date;
    date.From1904(serial);
    return date;
}

// MaxDate forwards, MinDate backwards.
const CDATE& BoundOf(int direction) noexcept { return direction > 0 ? CDATE::MaxDate() : CDATE::MinDate(); }

// The weekdays open for business as bits, bit 0 = Monday.
unsigned OpenWeekdays(const CCALENDARSTRATEGY& calendar) {
    unsigned weekdays = 0;
    for (int day = CDATE::Monday; day < CDATE::kDayCount; ++day) {
        weekdays |= calendar.IsOuvre(static_cast<CDATE::eDay>(day)) != 0 ? 1U << day : 0U;
    }
    return weekdays;
}

// What a walk asks the calendar about one day after the other. That no weekday is open for business shows on the way,
// so nothing needs to be asked beforehand.
class WALK {
public:
    WALK(const CCALENDARSTRATEGY& calendar, DayKind kind) : mCalendar(calendar), mKind(kind) {}

    // Whether the day is of the kind.
    bool Takes(const CDATE& date) {
        if (mKind == DayKind::Travaille) {
            return mCalendar.IsTravaille(date) != 0;
        }
        const auto weekday = static_cast<CDATE::eDay>(serialday::Weekday(date.ComputeDaysFrom1904()));
        if (mCalendar.IsOuvre(weekday) == 0) {
            ++mClosedDays;
            return false;
        }
        mHasOpenWeekday = true;
        return mCalendar.IsFerie(date) == 0;
    }

    // Whether a whole week was closed, and nothing before it open.
    [[nodiscard]] bool HasSeenClosedWeek() const {
        return mKind == DayKind::Ouvre && !mHasOpenWeekday && mClosedDays >= CDATE::kDayCount;
    }

    // Whether no weekday is open; asks about them when the days walked do not say.
    [[nodiscard]] bool IsAlwaysClosed() const {
        return mKind == DayKind::Ouvre && !mHasOpenWeekday && (HasSeenClosedWeek() || OpenWeekdays(mCalendar) == 0);
    }

private:
    const CCALENDARSTRATEGY& mCalendar;
    DayKind mKind;
    std::int32_t mClosedDays = 0;
    bool mHasOpenWeekday = false;
};

// The business days in [first, last), of a calendar of the library's own.
std::int32_t CountOpen(const HOLIDAYCALENDAR& holidays, unsigned weekdays, std::int32_t first, std::int32_t last) {
    const std::int32_t days = last - first;
    // The weekdays from that of `first` on, twice over, cut to the days beyond whole weeks.
    const unsigned beyond = ((weekdays | weekdays << 7) >> serialday::Weekday(first)) & ((1U << days % 7) - 1U);
    return days / 7 * std::popcount(weekdays) + std::popcount(beyond) - holidays.Count(first, last, weekdays);
}

// Moves `date` towards the bound by whole weeks, as long as more of `days` are left than they can hold; `days` is left
// positive, so that the walk after it ends on a business day. `direction` is 1 or -1.
void JumpWeeks(const HOLIDAYCALENDAR& holidays, unsigned weekdays, CDATE& date, long& days, int direction) {
    const int open = std::popcount(weekdays);
    std::int32_t serial = date.ComputeDaysFrom1904();
    const std::int32_t bound = direction > 0 ? kMaxDate : kMinDate;
    for (;;) {
        const long room = (bound - serial) * direction / 7;
        const long weeks = open != 0 ? std::min((days - 1) / open, room) : room;
        if (weeks <= 0) {
            break;
        }
        const std::int32_t reached = serial + direction * static_cast<std::int32_t>(weeks) * 7;
        // The start is never counted, the day reached is.
        days -= direction > 0 ? CountOpen(holidays, weekdays, serial + 1, reached + 1)
                              : CountOpen(holidays, weekdays, reached, serial);
        serial = reached;
    }
    date = DateOf(serial);
}

CDATE Nearest(const CCALENDARSTRATEGY& calendar, DayKind kind, CDATE date, int direction) {
    const CDATE bound = BoundOf(direction);
    WALK walk(calendar, kind);
    for (;;) {
        date.AddDays(direction);
        const bool hasLeftCalendar = direction > 0 ? date.GetYear() > 9999 : date.GetYear() < 0;
        if (hasLeftCalendar || date.IsNull() != 0) {
            return bound;
        }
        if (walk.Takes(date)) {
            return date;
        }
        if (date == bound || walk.HasSeenClosedWeek()) {
            return bound;
        }
    }
}

}  // namespace

bool IsOuvre(const CCALENDARSTRATEGY& calendar, const CDATE& date) {
    return WALK(calendar, DayKind::Ouvre).Takes(date);
}

std::int32_t Count(const CCALENDARSTRATEGY& calendar, DayKind kind, const CDATE& left, const CDATE& right) {
    if (left.IsDate() == 0 || right.IsDate() == 0) {
        return -1;
    }
    const auto [first, last] = std::minmax(left, right);
    if (const HOLIDAYCALENDAR* const holidays = OwnHolidays(calendar)) {
        return CountOpen(*holidays, OpenWeekdays(calendar), first.ComputeDaysFrom1904(), last.ComputeDaysFrom1904());
    }
    WALK walk(calendar, kind);
    std::int32_t count = 0;
    for (CDATE date = first; date < last; ++date) {
        count += walk.Takes(date) ? 1 : 0;
    }
    return count;
}

CDATE Step(const CCALENDARSTRATEGY& calendar, DayKind kind, CDATE date, long days) {
    const int direction = days < 0 ? -1 : 1;
    const CDATE bound = BoundOf(direction);
    // The smallest `long` has no opposite; one day less ends at the bound all the same.
    long left = days < 0 ? -std::max(days, -std::numeric_limits<long>::max()) : days;
    const HOLIDAYCALENDAR* holidays = OwnHolidays(calendar);
    WALK walk(calendar, kind);
    while (left > 0 && (direction > 0 ? date < bound : date > bound) && !walk.HasSeenClosedWeek()) {
        // Only real dates are jumped from; a first step makes one of any fields.
        if (holidays != nullptr && date.IsDate() != 0) {
            JumpWeeks(*holidays, OpenWeekdays(calendar), date, left, direction);
            holidays = nullptr;
        } else {
            date.AddDays(direction);
            left -= walk.Takes(date) ? 1 : 0;
        }
    }
    return walk.IsAlwaysClosed() ? bound : date;
}

CDATE Next(const CCALENDARSTRATEGY& calendar, DayKind kind, const CDATE& date) {
    return Nearest(calendar, kind, date, 1);
}

CDATE Previous(const CCALENDARSTRATEGY& calendar, DayKind kind, const CDATE& date) {
    return Nearest(calendar, kind, date, -1);
}

}  // namespace MLCore::businessdays
