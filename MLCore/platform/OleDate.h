#pragma once

#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/Export.h>

namespace MLCore::platform {

/// OLE Automation dates (the type DATE).
///
/// The whole part of a DATE counts days from 30 December 1899 00:00. The fraction is the time of day, which counts
/// forward also when the number is negative: -1.25 is 29 December 1899 06:00. The valid range is 1 January 100 00:00:00
/// (-657434.0) to 31 December 9999 23:59:59 (2958465.99998843).

/// Converts a civil time to a DATE.
///
/// A year from 0 to 29 means 2000 to 2029, one from 50 to 99 means 1950 to 1999. From 30 to 49 it means 1930 to 1949,
/// except on a Windows system with a later limit for two-digit years. Fields outside their range, also negative ones,
/// roll over into the next larger field: 30 February 2023 is 2 March 2023, day 0 is the last day of the month before.
/// The system determines how far days beyond the next month roll.
/// \return true when converted; false, with `date` unchanged, when the year is not 0 to 9999, another field does not
///         fit 16 bits signed, or the result is outside the range.
[[nodiscard]] MLCORE_API bool OleDateFromCivil(const CIVILTIME& time, double& date) noexcept;

/// Converts a DATE to a civil time, rounded to the nearest second, rolling over to the next day where needed.
///
/// \return true when converted; false, with `time` unchanged, for a DATE outside the range, an infinity or a NaN.
[[nodiscard]] MLCORE_API bool CivilFromOleDate(double date, CIVILTIME& time) noexcept;

}  // namespace MLCore::platform
