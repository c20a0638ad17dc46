#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

namespace MLCore::platform {

/// A date and a time of day in the Gregorian calendar, without a zone, as the clock and the conversions of the system
/// use it.
///
/// The struct holds any numbers; each function says which it accepts.
struct CIVILTIME {
    int year = 0;
    int month = 0;   ///< from 1
    int day = 0;     ///< from 1
    int hour = 0;    ///< 0 to 23
    int minute = 0;  ///< 0 to 59
    int second = 0;  ///< 0 to 59

    friend bool operator==(const CIVILTIME&, const CIVILTIME&) = default;
};

/// Copies the fields of `time` without a check; weekday and milliseconds are dropped.
[[nodiscard]] MLCORE_API CIVILTIME CivilFromSystemTime(const SYSTEMTIME& time) noexcept;

/// The fields of `time` as a SYSTEMTIME with 0 milliseconds.
///
/// \param dayOfWeek  0 for Sunday to 6 for Saturday; stored, not checked.
///
/// A SYSTEMTIME field is an unsigned 16-bit number: a value outside 0 to 65535 is stored modulo 65536.
[[nodiscard]] MLCORE_API SYSTEMTIME SystemTimeFromCivil(const CIVILTIME& time, int dayOfWeek) noexcept;

}  // namespace MLCore::platform
