#include <MLCore/platform/LocalZone.h>

#include <ctime>

namespace MLCore::platform {

namespace {

/// The Gregorian calendar repeats itself, weekdays included, every 400 years.
constexpr std::int64_t kCycleSeconds = 146097LL * 86400;

/// Far enough from today to be governed by the zone's last rule, near enough for the system's years.
constexpr std::int64_t kFarCycles = 1'000'000;

/// Brings an instant whose year overflows the system's type to the same day of a year that does not.
constexpr std::int64_t NearerInstant(std::int64_t unixSeconds) noexcept {
    const std::int64_t far = kFarCycles * kCycleSeconds;
    return unixSeconds % kCycleSeconds + (unixSeconds < 0 ? -far : far);
}

std::tm LocalTime(std::int64_t unixSeconds) noexcept {
    static_assert(sizeof(std::time_t) == sizeof(std::int64_t));
    std::time_t instant = unixSeconds;
    std::tm local{};
    if (localtime_r(&instant, &local) == nullptr) {
        instant = NearerInstant(unixSeconds);
        localtime_r(&instant, &local);
    }
    return local;
}

}  // namespace

std::int32_t LocalOffsetFromUtc(std::int64_t unixSeconds) noexcept {
    return static_cast<std::int32_t>(LocalTime(unixSeconds).tm_gmtoff);
}

CIVILTIME LocalNow() noexcept {
    const std::tm local = LocalTime(std::time(nullptr));
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace MLCore::platform
