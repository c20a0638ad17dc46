#include <MLCore/platform/LocalZone.h>

#include <MLCore/platform/WinTypes.h>

#include <chrono>

namespace MLCore::platform {

namespace {

using std::chrono::sys_days;
using std::chrono::sys_seconds;

/// The years in which every UTC instant has a local time that the system can represent; it counts from 1601 to 30827.
constexpr int kFirstYear = 1602;
constexpr int kLastYear = 30826;

constexpr std::int64_t UnixSeconds(int year, unsigned month, unsigned day) noexcept {
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    return sys_seconds(sys_days(date)).time_since_epoch().count();
}

SYSTEMTIME SystemTimeFromUnix(std::int64_t unixSeconds) noexcept {
    const sys_seconds instant{std::chrono::seconds{unixSeconds}};
    const sys_days midnight = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::year_month_day date{midnight};
    const std::chrono::hh_mm_ss time{instant - midnight};
    const auto number = [](auto value) { return static_cast<WORD>(value); };
    SYSTEMTIME result{};
    result.wYear = number(static_cast<int>(date.year()));
    result.wMonth = number(static_cast<unsigned>(date.month()));
    result.wDayOfWeek = number(std::chrono::weekday{midnight}.c_encoding());
    result.wDay = number(static_cast<unsigned>(date.day()));
    result.wHour = number(time.hours().count());
    result.wMinute = number(time.minutes().count());
    result.wSecond = number(time.seconds().count());
    return result;
}

std::int64_t UnixFromSystemTime(const SYSTEMTIME& time) noexcept {
    return UnixSeconds(time.wYear, time.wMonth, time.wDay) + time.wHour * 3600 + time.wMinute * 60 + time.wSecond;
}

/// The instant itself, or the same day and time in the first or last year that the system converts.
std::int64_t NearestConvertible(std::int64_t unixSeconds) noexcept {
    const bool isEarly = unixSeconds < UnixSeconds(kFirstYear, 1, 1);
    if (!isEarly && unixSeconds < UnixSeconds(kLastYear + 1, 1, 1)) {
        return unixSeconds;
    }
    // The calendar repeats every 400 years: the remainder has the day and time, in a year that no type overflows.
    constexpr std::int64_t kCycleSeconds = 146097LL * 86400;
    SYSTEMTIME time = SystemTimeFromUnix(unixSeconds % kCycleSeconds);
    const bool isLeapDay = time.wMonth == 2 && time.wDay == 29;  // neither of the two years has one
    time.wDay = isLeapDay ? WORD{28} : time.wDay;
    time.wYear = static_cast<WORD>(isEarly ? kFirstYear : kLastYear);
    return UnixFromSystemTime(time);
}

}  // namespace

std::int32_t LocalOffsetFromUtc(std::int64_t unixSeconds) noexcept {
    const std::int64_t instant = NearestConvertible(unixSeconds);
    const SYSTEMTIME utc = SystemTimeFromUnix(instant);
    SYSTEMTIME local{};
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) {
        return 0;  // no zone is set up: local time is UTC
    }
    return static_cast<std::int32_t>(UnixFromSystemTime(local) - instant);
}

CIVILTIME LocalNow() noexcept {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const std::int64_t unixSeconds = now.time_since_epoch().count();
    return CivilFromSystemTime(SystemTimeFromUnix(unixSeconds + LocalOffsetFromUtc(unixSeconds)));
}

}  // namespace MLCore::platform
