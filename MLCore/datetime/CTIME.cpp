#include <MLCore/datetime/CTIME.h>

#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/LocalZone.h>
#include <MLCore/platform/OleDate.h>
#include <MLCore/platform/WinTypes.h>

#include <cmath>

namespace MLCore {

namespace {

constexpr long kSecondsPerDay = CTIMESPAN::NbSecondsInOneDay();

platform::CIVILTIME OnOleDayZero(const CTIME& time) noexcept {
    return {1899, 12, 30, time.GetHours(), time.GetMinutes(), time.GetSeconds()};
}

}  // namespace

CTIME::CTIME(const _SYSTEMTIME& time) noexcept {
    Set(static_cast<std::int16_t>(time.wHour), static_cast<std::int16_t>(time.wMinute),
        static_cast<std::int16_t>(time.wSecond));
}

CTIME::CTIME(double oleDate) noexcept {
    platform::CIVILTIME civil;
    if (oleDate != 0.0 && platform::CivilFromOleDate(oleDate, civil)) {
        mSeconds = civil.hour * 3600 + civil.minute * 60 + civil.second;
    }
}

CTIME::CTIME(const CTIMESPAN& span) noexcept {
    FromSeconds(static_cast<long>(span.GetTotalSeconds() % kSecondsPerDay));
}

const CTIME& CTIME::Min() noexcept {
    static const CTIME time(0, 0, 0);
    return time;
}

const CTIME& CTIME::Max() noexcept {
    static const CTIME time(23, 59, 59);
    return time;
}

const CTIME& CTIME::Null() noexcept { return Min(); }

CTIME CTIME::Now() noexcept {
    const platform::CIVILTIME now = platform::LocalNow();
    return CTIME(static_cast<std::int16_t>(now.hour), static_cast<std::int16_t>(now.minute),
                 static_cast<std::int16_t>(now.second));
}

int CTIME::FromSeconds(long seconds) noexcept {
    const long remainder = seconds % kSecondsPerDay;
    mSeconds = static_cast<std::int32_t>(remainder < 0 ? remainder + kSecondsPerDay : remainder);
    return seconds < kSecondsPerDay ? 1 : 0;
}

int CTIME::FromMinutes(double minutes) noexcept {
    const double seconds = std::floor(minutes * 60);
    if (!std::isfinite(seconds)) {
        return 0;
    }
    FromSeconds(static_cast<long>(std::fmod(seconds, kSecondsPerDay)));
    return seconds < kSecondsPerDay ? 1 : 0;
}

int CTIME::FromHours(double hours) noexcept { return FromMinutes(hours * 60); }

// Whole days are dropped from the amounts first: then no sum can overflow.

CTIME& CTIME::operator+=(long seconds) noexcept {
    FromSeconds(mSeconds + seconds % kSecondsPerDay);
    return *this;
}

CTIME& CTIME::operator-=(long seconds) noexcept {
    FromSeconds(mSeconds - seconds % kSecondsPerDay);
    return *this;
}

CTIME& CTIME::operator+=(const CTIMESPAN& span) noexcept {
    return *this += static_cast<long>(span.GetTotalSeconds() % kSecondsPerDay);
}

CTIME& CTIME::operator-=(const CTIMESPAN& span) noexcept {
    return *this -= static_cast<long>(span.GetTotalSeconds() % kSecondsPerDay);
}

CTIME CTIME::operator++(int) noexcept {
    const CTIME before = *this;
    ++*this;
    return before;
}

CTIME CTIME::operator--(int) noexcept {
    const CTIME before = *this;
    --*this;
    return before;
}

CTIME& CTIME::AddMinutes(long minutes) noexcept { return *this += minutes % (kSecondsPerDay / 60) * 60; }

CTIME& CTIME::AddHours(long hours) noexcept { return *this += hours % (kSecondsPerDay / 3600) * 3600; }

long CTIME::ComputeSeconds(const CTIME& other) const noexcept {
    return static_cast<long>(static_cast<long long>(mSeconds) - other.mSeconds);
}

long CTIME::ComputeMinutes(const CTIME& other) const noexcept {
    return (GetHours() * 60 + GetMinutes()) - (other.GetHours() * 60 + other.GetMinutes());
}

long CTIME::ComputeHours(const CTIME& other) const noexcept { return GetHours() - other.GetHours(); }

CTIME::operator MLTIME() const noexcept { return {GetSeconds(), GetMinutes(), GetHours()}; }

_SYSTEMTIME CTIME::ToSystemTime() const noexcept { return platform::SystemTimeFromCivil(OnOleDayZero(*this), 0); }

double CTIME::ToWDate() const noexcept {
    double date = 0.0;
    return platform::OleDateFromCivil(OnOleDayZero(*this), date) ? date : 0.0;
}

}  // namespace MLCore
