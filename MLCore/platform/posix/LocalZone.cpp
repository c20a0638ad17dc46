#include <MLCore/platform/LocalZone.h>

#include <ctime>

namespace MLCore::platform {

namespace {

/// The Gregorian calendar repeats itself, weekdays included, every 400 years.
constexpr std::int64_t kCycleSeconds = 146097LL * 86400;

/// 100,000 years: governed by a zone's first or last rule, and within what the C library computes without overflow.
constexpr std::int64_t kFarSeconds = 250 * kCycleSeconds;

/// The instant itself, or the same day of a far year where the C library still counts right.
constexpr std::int64_t Convertible(std::int64_t unixSeconds) noexcept {
    if (unixSeconds > kFarSeconds) {
        return kFarSeconds + unixSeconds % kCycleSeconds;
    }
    return unixSeconds < -kFarSeconds ? unixSeconds % kCycleSeconds - kFarSeconds : unixSeconds;
}

std::tm LocalTime(std::int64_t unixSeconds) noexcept {
    static_assert(sizeof(std::time_t) == sizeof(std::int64_t));
    const std::time_t instant = Convertible(unixSeconds);
    std::tm local{};
    localtime_r(&instant, &local);
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
