/// Counting and stepping by business days, for CDATE.
///
/// A calendar of the library's own is described by its open weekdays and its table of holidays: long distances are
/// covered in whole weeks less the holidays in them. Any other strategy is asked about one day after the other, and
/// about each day once; so is every strategy about the last few days.
#pragma once

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/detail/SerialDay.h>

#include <cstdint>

namespace MLCore {
class CCALENDARSTRATEGY;
}

namespace MLCore::businessdays {

/// Which days are counted.
enum class DayKind {
    Ouvre,      ///< on an open weekday and no holiday
    Travaille,  ///< worked, by the strategy's own rule
};

[[nodiscard]] bool IsOuvre(const CCALENDARSTRATEGY& calendar, const CDATE& date);

/// The latest day on or before `serial` that is a `firstDayOfWeek` (taken modulo 7).
[[nodiscard]] constexpr std::int32_t WeekStart(std::int32_t serial, int firstDayOfWeek) noexcept {
    return serial - serialday::Weekday(serial - firstDayOfWeek % 7);
}

/// The days d of the kind with first <= d < last, whichever of the two comes first; -1 when one of them is not a valid
/// date.
[[nodiscard]] std::int32_t Count(const CCALENDARSTRATEGY& calendar, DayKind kind, const CDATE& left,
                                 const CDATE& right);

/// `date` moved by `days` days of the kind, up to MinDate or MaxDate. Where no weekday is open for business, Ouvre
/// leads to MinDate for negative `days` and to MaxDate otherwise.
[[nodiscard]] CDATE Step(const CCALENDARSTRATEGY& calendar, DayKind kind, CDATE date, long days);

/// The nearest day of the kind after (before) `date`; MaxDate (MinDate) when there is none up to it, or when the walk
/// leaves the year 9999 (0).
[[nodiscard]] CDATE Next(const CCALENDARSTRATEGY& calendar, DayKind kind, const CDATE& date);
[[nodiscard]] CDATE Previous(const CCALENDARSTRATEGY& calendar, DayKind kind, const CDATE& date);

}  // namespace MLCore::businessdays
