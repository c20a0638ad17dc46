#include <MLCore/platform/OleDate.h>

#include <MLCore/platform/common/OleDateRange.h>

#include <chrono>
#include <cmath>
#include <cstdint>

namespace MLCore::platform {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = std::chrono::year{1899} / 12 / 30;
constexpr int kSecondsPerDay = 86400;

constexpr int FullYear(int year) noexcept {
    constexpr int kFirstYearOf1900s = 30;
    if (year > 99) {
        return year;
    }
    return year < kFirstYearOf1900s ? 2000 + year : 1900 + year;
}

}  // namespace

bool OleDateFromCivil(const CIVILTIME& time, double& date) noexcept {
    if (!AreOleFields(time)) {
        return false;
    }
    const auto month = std::chrono::year{FullYear(time.year)} / 1 + std::chrono::months{time.month - 1};
    const sys_days midnight = sys_days(month / 1) + days{time.day - 1};
    const std::int64_t seconds = time.hour * 3600LL + time.minute * 60LL + time.second;
    const std::int64_t total = std::int64_t{(midnight - kEpoch).count()} * kSecondsPerDay + seconds;

    std::int64_t wholeDays = total / kSecondsPerDay;
    std::int64_t rest = total % kSecondsPerDay;
    if (rest < 0) {
        --wholeDays;
        rest += kSecondsPerDay;
    }
    const double fraction = static_cast<double>(rest) / kSecondsPerDay;
    const double whole = static_cast<double>(wholeDays);
    const double result = wholeDays < 0 ? whole - fraction : whole + fraction;
    if (!IsOleDate(result)) {
        return false;
    }
    date = result;
    return true;
}

bool CivilFromOleDate(double date, CIVILTIME& time) noexcept {
    if (!IsOleDate(date)) {
        return false;
    }
    const double whole = std::trunc(date);
    const double seconds = std::floor(std::fabs(date - whole) * kSecondsPerDay + 0.5);
    const auto instant = std::chrono::sys_seconds(kEpoch) + days{static_cast<int>(whole)} +
                         std::chrono::seconds{static_cast<int>(seconds)};
    const sys_days midnight = std::chrono::floor<days>(instant);
    const year_month_day day{midnight};
    if (static_cast<int>(day.year()) > 9999) {
        return false;  // the last half second rounds up beyond the range
    }
    const std::chrono::hh_mm_ss clock{instant - midnight};
    time = {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
    return true;
}

}  // namespace MLCore::platform
