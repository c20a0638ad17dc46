#pragma once

#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/Export.h>

#include <cstdint>

namespace MLCore::platform {

/// Seconds to add to UTC to get the process's local time at an instant: 3600 in Paris in winter, -18000 in New York.
///
/// \param unixSeconds  the instant, in seconds since 1 January 1970 00:00:00 UTC; any value.
///
/// The zone of the process is the system's, except on Linux when the environment variable `TZ` is set at the start of
/// the process: then it is that zone. If the system does not convert the year of an instant, the result is the offset
/// of the same day and time in the nearest year that it converts. Never fails.
[[nodiscard]] MLCORE_API std::int32_t LocalOffsetFromUtc(std::int64_t unixSeconds) noexcept;

/// The current date and time in the process's local zone, cut to whole seconds.
[[nodiscard]] MLCORE_API CIVILTIME LocalNow() noexcept;

}  // namespace MLCore::platform
