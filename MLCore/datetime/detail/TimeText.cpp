#include <MLCore/datetime/detail/TimeText.h>

#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/detail/DateText.h>
#include <MLCore/datetime/detail/TextReader.h>
#include <MLCore/text/DecimalText.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>

namespace MLCore {

namespace {

bool SetParts(std::string_view hours, std::string_view minutes, std::string_view seconds, CTIME& time) noexcept {
    if (IsDigits(hours) == 0 || IsDigits(minutes) == 0 || IsDigits(seconds) == 0) {
        return false;
    }
    const int h = LeadingInteger(hours);
    const int m = LeadingInteger(minutes);
    const int s = LeadingInteger(seconds);
    if (h > 23 || m > 59 || s > 59) {
        return false;
    }
    time.Set(static_cast<std::int16_t>(h), static_cast<std::int16_t>(m), static_cast<std::int16_t>(s));
    return true;
}

// HHMMSS.
bool ReadCompact(std::string_view text, CTIME& time) noexcept {
    return text.size() == 6 && SetParts(text.substr(0, 2), text.substr(2, 2), text.substr(4, 2), time);
}

// HH:MM:SS; whatever follows is ignored.
bool ReadExtended(std::string_view text, CTIME& time) noexcept {
    return text.size() >= 8 && text[2] == ':' && text[5] == ':' &&
           SetParts(text.substr(0, 2), text.substr(3, 2), text.substr(6, 2), time);
}

// The zone of an XML time.
struct ZONE {
    int sign;                 // of the offset; 0 for "Z" and without a zone
    std::string_view offset;  // after the sign
};

// Cuts the zone off the text; nothing when something follows its "Z".
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

// Whether nothing stands after HH:MM:SS, or a fraction of which the first character is a digit; the others may be
// anything.
bool HasPossibleFraction(std::string_view text) noexcept {
    return text.size() <= 8 || (text[8] == '.' && IsDigits(text.substr(9, 1)) != 0);
}

}  // namespace

namespace timetext {

bool ReadPlain(std::string_view text, CTIME& time) noexcept {
    if (text.empty()) {
        time = {};
        return true;
    }
    if (text.find(':') == text.npos) {
        return ReadCompact(text, time);
    }
    return text.size() == 8 && ReadExtended(text, time);
}

bool ReadXmlTime(std::string_view text, CTIME& time) noexcept {
    if (text.empty()) {
        time = {};
        return true;
    }
    const bool isExtended = text.find(':') != text.npos;
    const std::optional<ZONE> zone = TakeZone(text);
    if (!zone) {
        return false;
    }
    if (!isExtended) {
        return zone->sign == 0 && ReadCompact(text, time);
    }
    const std::optional<CTIMESPAN> shift = ShiftOf(*zone);
    if (!shift || !HasPossibleFraction(text) || !ReadExtended(text, time)) {
        return false;
    }
    time += *shift;
    return true;
}

bool ReadXml(std::string_view text, CTIME& time) noexcept {
    const std::size_t separator = text.find('T');
    if (separator == text.npos) {
        return ReadXmlTime(text, time);
    }
    CDATE utcDate;
    CTIME utcTime;
    if (!datetext::ReadXml(text.substr(0, separator), utcDate) || !ReadXmlTime(text.substr(separator + 1), utcTime)) {
        return false;
    }
    CDATETIME moment(utcDate, utcTime);
    moment.ToLocalZone();
    if (moment.IsNull() != 0) {
        return false;
    }
    time = moment.GetTime();
    return true;
}

}  // namespace timetext

CTIME::CTIME(const char* text) noexcept { FromString(text); }

std::string CTIME::ToString() const {
    std::string text;
    AppendPadded(text, GetHours(), 2);
    text += ':';
    AppendPadded(text, GetMinutes(), 2);
    text += ':';
    AppendPadded(text, GetSeconds(), 2);
    return text;
}

int CTIME::FromString(const char* text) noexcept { return ReadText<timetext::ReadPlain>(text, *this); }

int CTIME::FromStringXML(const char* text) noexcept { return ReadText<timetext::ReadXml>(text, *this); }

int IsStrTime(const char* text) noexcept { return CTIME().FromString(text); }

std::ostream& operator<<(std::ostream& out, const CTIME& time) {
    return out << "CTIME(" << std::to_string(time.GetHours()) << ',' << std::to_string(time.GetMinutes()) << ','
               << std::to_string(time.GetSeconds()) << ')';
}

}  // namespace MLCore
