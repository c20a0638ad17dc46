#include <MLCore/datetime/CDATETIME.h>

#include <MLCore/datetime/detail/DateText.h>
#include <MLCore/datetime/detail/SerialDay.h>
#include <MLCore/datetime/detail/TextReader.h>
#include <MLCore/datetime/detail/TimeText.h>
#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/LocalZone.h>

#include <cstddef>
#include <ostream>
#include <string_view>

namespace MLCore {

namespace {

constexpr long long kSecondsPerDay = CTIMESPAN::NbSecondsInOneDay();
constexpr long long k1904FromUnixEpoch = -serialday::kUnixEpoch * kSecondsPerDay;

long long OffsetAt(long long secondsFrom1904) noexcept {
    return platform::LocalOffsetFromUtc(secondsFrom1904 + k1904FromUnixEpoch);
}

// As CDATETIME::FromString().
bool ReadPlain(std::string_view text, CDATETIME& moment) noexcept {
    CDATE date;
    CTIME time;
    if (!text.empty() && (text.size() != 17 || text[8] != ' ' || !datetext::ReadLong(text.substr(0, 8), date) ||
                          !timetext::ReadPlain(text.substr(9), time))) {
        return false;
    }
    moment = {date, time};
    return true;
}

// As CDATETIME::FromStringXML().
bool ReadXml(std::string_view text, CDATETIME& moment) noexcept {
    if (text.empty()) {
        moment = {};
        return true;
    }
    const std::size_t separator = text.find('T');
    CDATE date;
    CTIME time;
    if (separator == text.npos || !datetext::ReadXml(text.substr(0, separator), date) ||
        !timetext::ReadXmlTime(text.substr(separator + 1), time)) {
        return false;
    }
    CDATETIME local(date, time);
    local.ToLocalZone();
    if (local.IsDateTime() == 0) {
        return false;
    }
    moment = local;
    return true;
}

}  // namespace

CDATETIME CDATETIME::Now() noexcept {
    const platform::CIVILTIME now = platform::LocalNow();
    return {CDATE(static_cast<std::int16_t>(now.day), static_cast<std::int16_t>(now.month),
                  static_cast<std::int16_t>(now.year)),
            CTIME(static_cast<std::int16_t>(now.hour), static_cast<std::int16_t>(now.minute),
                  static_cast<std::int16_t>(now.second))};
}

long long CDATETIME::SecondsFrom1904() const noexcept {
    return mDate.ComputeDaysFrom1904() * kSecondsPerDay + mTime.GetTotalSeconds();
}

CDATETIME& CDATETIME::operator+=(const CTIMESPAN& span) noexcept {
    if (IsNull() != 0) {
        return *this;
    }
    const long long seconds = (CTIMESPAN(SecondsFrom1904()) + span).GetTotalSeconds();
    const long long rest = (seconds % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
    const long long days = seconds / kSecondsPerDay - (seconds % kSecondsPerDay < 0 ? 1 : 0);
    if (days < serialday::kFirst || days > serialday::kLast) {
        return *this = {};
    }
    mDate.From1904(static_cast<long>(days));
    mTime.FromSeconds(static_cast<long>(rest));
    return *this;
}

CDATETIME& CDATETIME::AddMinutes(long minutes) noexcept {
    CTIMESPAN span;
    span.SetMinutes(minutes);
    return *this += span;
}

CDATETIME& CDATETIME::AddHours(long hours) noexcept {
    CTIMESPAN span;
    span.SetHours(hours);
    return *this += span;
}

CDATETIME& CDATETIME::AddDays(long days) noexcept {
    if (IsNull() == 0) {
        mDate.AddDays(days);
    }
    return *this;
}

CDATETIME& CDATETIME::AddMonths(long months) noexcept {
    if (IsNull() == 0) {
        mDate.AddMonths(months);
    }
    return *this;
}

CDATETIME& CDATETIME::AddYears(long years) noexcept {
    if (IsNull() == 0) {
        mDate.AddYears(years);
    }
    return *this;
}

void CDATETIME::ToLocalZone() noexcept { *this += CTIMESPAN(OffsetAt(SecondsFrom1904())); }

void CDATETIME::ToGMZone() noexcept {
    // The offsets a day before and a day after are the ones on either side of a change. Where the first holds at the
    // moment that it leads to, that is the earlier reading; where neither does, the time was skipped.
    const long long local = SecondsFrom1904();
    const long long before = OffsetAt(local - kSecondsPerDay);
    const long long after = OffsetAt(local + kSecondsPerDay);
    const bool isAfterChange = OffsetAt(local - before) != before && OffsetAt(local - after) == after;
    *this -= CTIMESPAN(isAfterChange ? after : before);
}

std::string CDATETIME::ToString() const {
    return IsNull() != 0 ? std::string() : mDate.ToString() + ' ' + mTime.ToString();
}

std::string CDATETIME::ToStringXML() const {
    if (IsNull() != 0) {
        return {};
    }
    CDATETIME utc = *this;
    utc.ToGMZone();
    return utc.IsNull() != 0 ? std::string() : utc.mDate.ToStringXML() + 'T' + utc.mTime.ToString();
}

int CDATETIME::FromString(const char* text) noexcept { return ReadText<ReadPlain>(text, *this); }

int CDATETIME::FromStringXML(const char* text) noexcept { return ReadText<ReadXml>(text, *this); }

std::ostream& operator<<(std::ostream& out, const CDATETIME& moment) {
    return out << "CDATETIME(" << moment.ToString() << ')';
}

}  // namespace MLCore
