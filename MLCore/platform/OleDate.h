#pragma once

#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/Export.h>

namespace MLCore::platform {

/// OLE Automation dates (the type DATE).
///
/// A DATE counts days from 30 December 1899 00:00 in its whole part; the fraction is the time of day and counts forward also
/// when the number is negative: -1.25 is 29 December 1899 06:00. Valid are 1 January 100 00:00:00 (-657434.0) to
/// 31 December 9999 23:59:59 (2958465.99998843).

/// Converts a civil time to a DATE.
///
/// A year from 0 to 29 means 2000 to 2029, one from 30 to 99 means 1930 to 1999. Fields beyond their range roll over into
/// the next larger one as the system does: 30 February 2023 is 2 March 2023.
/// \return true when converted; false, with `date` unchanged, when the result is outside the range.
[[nodiscard]] MLCORE_API bool OleDateFromCivil(const CIVILTIME& time, double& date) noexcept;

/// Converts a DATE to a civil time, rounded to the nearest second, rolling over to the next day where needed.
///
/// \return true when converted; false, with `time` unchanged, for a DATE outside the range, an infinity or a NaN.
[[nodiscard]] MLCORE_API bool CivilFromOleDate(double date, CIVILTIME& time) noexcept;

} // namespace MLCore::platform
