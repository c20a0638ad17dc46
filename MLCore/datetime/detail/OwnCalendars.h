/// The library's own calendars, described by their holidays.
#pragma once

namespace MLCore {

class CCALENDARSTRATEGY;
class HOLIDAYCALENDAR;

/// The holidays of a calendar whose class is one of the library's own; null for a class derived from one, which may
/// override a rule. The holidays are computed at the first call; any thread may make it.
[[nodiscard]] const HOLIDAYCALENDAR* OwnHolidays(const CCALENDARSTRATEGY& calendar);

}  // namespace MLCore
