/// The dates that the conversions of OLE dates accept on both systems.
#pragma once

#include <MLCore/platform/CivilTime.h>

#include <cstdint>
#include <utility>

namespace MLCore::platform {

/// True when a DATE lies in the range, which is strictly between these two numbers: the fraction of a negative DATE is
/// added to the day. False for a NaN.
[[nodiscard]] constexpr bool IsOleDate(double date) noexcept { return date > -657435.0 && date < 2958466.0; }

/// True when the year can be converted and the other fields fit 16 bits, as Windows stores them.
[[nodiscard]] constexpr bool AreOleFields(const CIVILTIME& time) noexcept {
    for (const int field : {time.month, time.day, time.hour, time.minute, time.second}) {
        if (!std::in_range<std::int16_t>(field)) {
            return false;
        }
    }
    return time.year >= 0 && time.year <= 9999;
}

}  // namespace MLCore::platform
