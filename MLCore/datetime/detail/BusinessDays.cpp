#include <MLCore/datetime/detail/BusinessDays.h>

#include <MLCore/datetime/CCALENDARBANQUEPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>
#include <MLCore/datetime/detail/SerialDay.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <typeinfo>

namespace MLCore::businessdays {

namespace {

struct OWNCALENDAR {
    const std::type_info& type;
    const HOLIDAYCALENDAR& (*holidays)();
};

// The holidays of a calendar that is exactly one of the library's; null for a class derived from it, which may have
// overridden a rule.
const HOLIDAYCALENDAR* OwnHolidays(const CCALENDARSTRATEGY& calendar) {
    static const OWNCALENDAR kOwnCalendars[] = {
        {typeid(CCALENDARFRENCHSTRATEGY), FrenchHolidays},
        {typeid(CCALENDARBANQUESTRATEGY), FrenchBankHolidays},
        {typeid(CCALENDARPORTOSTRATEGY), PortugueseHolidays},
        {typeid(CCALENDARBANQUEPORTOSTRATEGY), PortugueseHolidays},
    };
    const std::type_info& type = typeid(calendar);
    for (const OWNCALENDAR& own : kOwnCalendars) {
        if (own.type == type) {
            return &own.holidays();
        }
    }
    return nullptr;
}

// The business days in [first, last), of a calendar of the library's own.
std::int32_t CountOpen(const HOLIDAYCALENDAR& holidays, unsigned weekdays, std::int32_t first, std::int32_t last) {
    const std::int32_t days = last - first;
    // The weekdays from that of `first` on, twice over, cut to the days beyond whole weeks.
    const unsigned beyond = ((weekdays | weekdays << 7) >> serialday::Weekday(first)) & ((1U << days % 7) - 1U);
    return days / 7 * std::popcount(weekdays) + std::popcount(beyond) - holidays.Count(first, last, weekdays);
}

constexpr std::int32_t kMinDate = serialday::FromFields(1, 1, 1900);
constexpr std::int32_t kMaxDate = serialday::FromFields(31, 12, 9999);

CDATE DateOf(std::int32_t serial) noexcept {
    CDATE date;
    date.From1904(serial);
    return date;
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

}  // namespace

bool IsOuvre(const CCALENDARSTRATEGY& calendar, const CDATE& date) {
    const auto weekday = static_cast<CDATE::eDay>(serialday::Weekday(date.ComputeDaysFrom1904()));
    return calendar.IsOuvre(weekday) != 0 && calendar.IsFerie(date) == 0;
}

bool IsTravaille(const CCALENDARSTRATEGY& calendar, const CDATE& date) { return calendar.IsTravaille(date) != 0; }

unsigned OpenWeekdays(const CCALENDARSTRATEGY& calendar) {
    unsigned weekdays = 0;
    for (int day = CDATE::Monday; day <= CDATE::Sunday; ++day) {
        weekdays |= calendar.IsOuvre(static_cast<CDATE::eDay>(day)) != 0 ? 1U << day : 0U;
    }
    return weekdays;
}

std::int32_t Count(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, const CDATE& left, const CDATE& right) {
    if (left.IsDate() == 0 || right.IsDate() == 0) {
        return -1;
    }
    const auto [first, last] = std::minmax(left, right);
    if (const HOLIDAYCALENDAR* const holidays = OwnHolidays(calendar)) {
        return CountOpen(*holidays, OpenWeekdays(calendar), first.ComputeDaysFrom1904(), last.ComputeDaysFrom1904());
    }
    std::int32_t count = 0;
    for (CDATE date = first; date < last; ++date) {
        count += predicate(calendar, date) ? 1 : 0;
    }
    return count;
}

CDATE Step(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, CDATE date, long days) {
    const int direction = days < 0 ? -1 : 1;
    // The smallest `long` has no opposite; one day less ends at the bound all the same.
    long left = days < 0 ? -std::max(days, -std::numeric_limits<long>::max()) : days;
    const HOLIDAYCALENDAR* holidays = OwnHolidays(calendar);
    while (left > 0 && (direction > 0 ? date < CDATE::MaxDate() : date > CDATE::MinDate())) {
        // Only real dates are jumped from; a first step makes one of any fields.
        if (holidays != nullptr && date.IsDate() != 0) {
            JumpWeeks(*holidays, OpenWeekdays(calendar), date, left, direction);
            holidays = nullptr;
        } else {
            date.AddDays(direction);
            left -= predicate(calendar, date) ? 1 : 0;
        }
    }
    return date;
}

namespace {

CDATE Nearest(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, CDATE date, int direction, const CDATE& bound) {
    do {
        date.AddDays(direction);
        const bool hasLeftCalendar = direction > 0 ? date.GetYear() > 9999 : date.GetYear() < 0;
        if (hasLeftCalendar || date.IsNull() != 0) {
            return bound;
        }
    } while (!predicate(calendar, date) && date != bound);
    return date;
}

}  // namespace

CDATE Next(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, const CDATE& date) {
    return Nearest(calendar, predicate, date, 1, CDATE::MaxDate());
}

CDATE Previous(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, const CDATE& date) {
    return Nearest(calendar, predicate, date, -1, CDATE::MinDate());
}

}  // namespace MLCore::businessdays
