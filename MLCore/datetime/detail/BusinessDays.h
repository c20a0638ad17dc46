/// Counting and stepping by business days, for CDATE.
///
/// A calendar of the library's own is described by its open weekdays and its table of holidays, and long distances are
/// covered in whole weeks less the holidays in them. Any other strategy is asked day by day, as is every strategy for
/// the last few days.
#pragma once

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/detail/SerialDay.h>

#include <cstdint>

namespace MLCore {
class CCALENDARSTRATEGY;
}

namespace MLCore::businessdays {

/// Which days are counted: IsOuvre or IsTravaille.
using PREDICATE = bool (*)(const CCALENDARSTRATEGY& calendar, const CDATE& date);

[[nodiscard]] bool IsOuvre(const CCALENDARSTRATEGY& calendar, const CDATE& date);
[[nodiscard]] bool IsTravaille(const CCALENDARSTRATEGY& calendar, const CDATE& date);

/// The weekdays open for business as bits, bit 0 = Monday.
[[nodiscard]] unsigned OpenWeekdays(const CCALENDARSTRATEGY& calendar);

/// The latest day on or before `serial` that is a `firstDayOfWeek` (taken modulo 7).
[[nodiscard]] constexpr std::int32_t WeekStart(std::int32_t serial, int firstDayOfWeek) noexcept {
    return serial - serialday::Weekday(serial - firstDayOfWeek % 7);
}

/// The days d with first <= d < last that satisfy the predicate, whichever of the two is the earlier; -1 when one of
/// them is no date.
[[nodiscard]] std::int32_t Count(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, const CDATE& left,
                                 const CDATE& right);

/// `date` moved by `days` days that satisfy the predicate, up to MinDate or MaxDate.
[[nodiscard]] CDATE Step(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, CDATE date, long days);

/// The nearest day after (before) `date` that satisfies the predicate; MaxDate (MinDate) when there is none up to it, or
/// when the walk leaves the year 9999 (0).
[[nodiscard]] CDATE Next(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, const CDATE& date);
[[nodiscard]] CDATE Previous(const CCALENDARSTRATEGY& calendar, PREDICATE predicate, const CDATE& date);

}  // namespace MLCore::businessdays
