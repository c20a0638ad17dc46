/// The first and the last day of the period that holds a date, and for a date-time its first and last second: week,
/// month, bimestre (two months), trimestre (quarter), semestre (half-year) and year.
///
///     CDATE date(15, 8, 2024);
///     CDATE quarterEnd = LastDateTrimestre(date);                               // 30/9/2024
///     CDATE monday = FirstDateEchelonnement(date, CDATE::EchelonWeek);          // 12/8/2024, by the current calendar
///     CDATETIME monthEnd = LastDateTimeMonth(CDATETIME(date, CTIME(8, 0, 0)));  // 31/8/2024 23:59:59
///
/// The arguments are not checked: for a date that is not valid, the rule is applied to its fields (the first day of the
/// null date's month is 1/0/0). Only FirstDateEchelonnement() and LastDateEchelonnement() give the null date, for a
/// date that is not valid and for an unknown kind. A null strategy means the current calendar; weeks start on its first
/// day of the week. Nothing fails.
#pragma once

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The latest day on or before the date on which a week starts, and the day six days later.
[[nodiscard]] MLCORE_API CDATE FirstDateWeek(const CDATE& date, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATE LastDateWeek(const CDATE& date, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATE FirstDateMonth(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE LastDateMonth(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE FirstDateBimestre(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE LastDateBimestre(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE FirstDateTrimestre(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE LastDateTrimestre(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE FirstDateSemestre(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE LastDateSemestre(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE FirstDateYear(const CDATE& date);
[[nodiscard]] MLCORE_API CDATE LastDateYear(const CDATE& date);

/// The same by kind of period; EchelonDay gives the date itself.
[[nodiscard]] MLCORE_API CDATE FirstDateEchelonnement(const CDATE& date, CDATE::eTypeEchelonnement type,
                                                      CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATE LastDateEchelonnement(const CDATE& date, CDATE::eTypeEchelonnement type,
                                                     CCALENDARSTRATEGY* strategy = nullptr);

/// The same for the date of a date-time, at 00:00:00 for the first day and 23:59:59 for the last.
[[nodiscard]] MLCORE_API CDATETIME FirstDateTimeWeek(const CDATETIME& moment, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATETIME LastDateTimeWeek(const CDATETIME& moment, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATETIME FirstDateTimeMonth(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME LastDateTimeMonth(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME FirstDateTimeBimestre(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME LastDateTimeBimestre(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME FirstDateTimeTrimestre(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME LastDateTimeTrimestre(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME FirstDateTimeSemestre(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME LastDateTimeSemestre(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME FirstDateTimeYear(const CDATETIME& moment);
[[nodiscard]] MLCORE_API CDATETIME LastDateTimeYear(const CDATETIME& moment);

}  // namespace MLCore
