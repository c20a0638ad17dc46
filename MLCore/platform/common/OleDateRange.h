/// What both systems' conversions of OLE dates accept.
#pragma once

#include <MLCore/platform/CivilTime.h>

#include <cstdint>
#include <utility>

namespace MLCore::platform {

/// Whether a DATE lies in the range. It does strictly between these two: the fraction of a negative one adds to the day. False
/// for a NaN.
[[nodiscard]] constexpr bool IsOleDate(double date) noexcept { return date > -657435.0 && date < 2958466.0; }

/// Whether the year is one that is converted, and the other fields are 16-bit numbers, as which Windows reads them.
[[nodiscard]] constexpr bool AreOleFields(const CIVILTIME& time) noexcept {
    for (const int field : {time.month, time.day, time.hour, time.minute, time.second}) {
        if (!std::in_range<std::int16_t>(field)) {
            return false;
        }
    }
    return time.year >= 0 && time.year <= 9999;
}

}  // namespace MLCore::platform
