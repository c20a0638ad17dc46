#include <MLCore/datetime/CTIME.h>

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/LocalZone.h>
#include <MLCore/platform/OleDate.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/text/DecimalText.h>

#include <cmath>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string_view>

namespace MLCore {

namespace {

constexpr long kSecondsPerDay = CTIMESPAN::NbSecondsInOneDay();

platform::CIVILTIME OnOleDayZero(const CTIME& time) noexcept {
    return {1899, 12, 30, time.GetHours(), time.GetMinutes(), time.GetSeconds()};
}

// The zone of an XML time.
struct ZONE {
    int sign;                 // of the offset; 0 for "Z" and without a zone
    std::string_view offset;  // behind the sign
};

// Cuts the zone off the text; nothing when something stands behind its "Z".
std::optional<ZONE> TakeZone(std::string_view& text) noexcept {
    const std::string_view all = text;
    if (const std::size_t zulu = all.find('Z'); zulu != all.npos) {
        text = all.substr(0, zulu);
        return zulu + 1 == all.size() ? std::optional<ZONE>({0, {}}) : std::nullopt;
    }
    const std::size_t minus = all.find('-');
    const std::size_t sign = minus != all.npos ? minus : all.find('+');
    text = all.substr(0, sign);
    return sign != all.npos ? ZONE{minus != all.npos ? -1 : 1, all.substr(sign + 1)} : ZONE{0, {}};
}

// What the zone adds to the time; nothing for an offset other than "hh:mm".
std::optional<CTIMESPAN> ShiftOf(const ZONE& zone) noexcept {
    CTIMESPAN shift;
    if (zone.sign != 0) {
        const std::string_view hours = zone.offset.substr(0, 2);
        const std::string_view minutes = zone.offset.size() == 5 ? zone.offset.substr(3) : std::string_view();
        if (minutes.empty() || zone.offset[2] != ':' || IsDigits(hours) == 0 || IsDigits(minutes) == 0) {
            return std::nullopt;
        }
        shift.SetHours(zone.sign * LeadingInteger(hours));
        shift.SetMinutes(zone.sign * LeadingInteger(minutes));
    }
    return shift;
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

CTIME::CTIME(const char* text) noexcept { FromString(text); }

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

std::string CTIME::ToString() const {
    std::string text;
    AppendPadded(text, GetHours(), 2);
    text += ':';
    AppendPadded(text, GetMinutes(), 2);
    text += ':';
    AppendPadded(text, GetSeconds(), 2);
    return text;
}

_SYSTEMTIME CTIME::ToSystemTime() const noexcept { return platform::SystemTimeFromCivil(OnOleDayZero(*this), 0); }

double CTIME::ToWDate() const noexcept {
    double date = 0.0;
    return platform::OleDateFromCivil(OnOleDayZero(*this), date) ? date : 0.0;
}

int CTIME::FromParts(std::string_view hours, std::string_view minutes, std::string_view seconds) noexcept {
    if (IsDigits(hours) == 0 || IsDigits(minutes) == 0 || IsDigits(seconds) == 0) {
        return 0;
    }
    const int h = LeadingInteger(hours);
    const int m = LeadingInteger(minutes);
    const int s = LeadingInteger(seconds);
    if (h > 23 || m > 59 || s > 59) {
        return 0;
    }
    mSeconds = h * 3600 + m * 60 + s;
    return 1;
}

int CTIME::FromString(const char* text) noexcept {
    if (text == nullptr) {
        return 0;
    }
    const std::string_view view(text);
    if (view.empty()) {
        mSeconds = 0;
        return 1;
    }
    if (view.find(':') == std::string_view::npos) {
        return view.size() == 6 ? FromParts(view.substr(0, 2), view.substr(2, 2), view.substr(4, 2)) : 0;
    }
    if (view.size() != 8 || view[2] != ':' || view[5] != ':') {
        return 0;
    }
    return FromParts(view.substr(0, 2), view.substr(3, 2), view.substr(6, 2));
}

int CTIME::FromStringXML(const char* text) noexcept { return text != nullptr ? FromXmlText(text) : 0; }

int CTIME::FromXmlText(std::string_view text) noexcept {
    const std::size_t separator = text.find('T');
    if (separator == std::string_view::npos) {
        return FromXmlTimeText(text);
    }
    CDATE date;
    CTIME time;
    if (date.FromXmlText(text.substr(0, separator)) == 0 || time.FromXmlTimeText(text.substr(separator + 1)) == 0) {
        return 0;
    }
    CDATETIME moment(date, time);
    moment.ToLocalZone();
    if (moment.IsNull() != 0) {
        return 0;
    }
    *this = moment.GetTime();
    return 1;
}

int CTIME::FromXmlTimeText(std::string_view text) noexcept {
    if (text.empty()) {
        mSeconds = 0;
        return 1;
    }
    const bool isExtended = text.find(':') != std::string_view::npos;
    const std::optional<ZONE> zone = TakeZone(text);
    if (!zone) {
        return 0;
    }
    if (!isExtended) {
        return zone->sign == 0 && text.size() == 6 ? FromParts(text.substr(0, 2), text.substr(2, 2), text.substr(4, 2))
                                                   : 0;
    }
    const std::optional<CTIMESPAN> shift = ShiftOf(*zone);
    const bool hasFraction = text.size() > 8;
    if (!shift || text.size() < 8 || text[2] != ':' || text[5] != ':' || (hasFraction && text[8] != '.') ||
        (text.size() > 9 && IsDigits(text.substr(9, 1)) == 0)) {
        return 0;
    }
    if (FromParts(text.substr(0, 2), text.substr(3, 2), text.substr(6, 2)) == 0) {
        return 0;
    }
    *this += *shift;
    return 1;
}

int IsStrTime(const char* text) noexcept { return CTIME().FromString(text); }

std::ostream& operator<<(std::ostream& out, const CTIME& time) {
    return out << "CTIME(" << std::to_string(time.GetHours()) << ',' << std::to_string(time.GetMinutes()) << ','
               << std::to_string(time.GetSeconds()) << ')';
}

}  // namespace MLCore
