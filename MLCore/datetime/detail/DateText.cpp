#include <MLCore/datetime/detail/DateText.h>

#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/detail/CDATEFORMAT.h>
#include <MLCore/datetime/detail/TextReader.h>
#include <MLCore/datetime/detail/TimeText.h>
#include <MLCore/text/DecimalText.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <ostream>
#include <string>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kLongestText = 255;

// Which of day, month and year stands at each place of a text. Read the other way round, the place of each of them: no
// order exchanges more than two.
constexpr int kDay = 0;
constexpr int kMonth = 1;
constexpr int kYear = 2;
constexpr std::array<int, 3> kFieldAt[] = {{kMonth, kDay, kYear}, {kDay, kMonth, kYear}, {kYear, kMonth, kDay}};
static_assert(std::size(kFieldAt) == CDATEFORMAT::kOrderCount);

std::string Write(const CDATE& date, const CDATEFORMAT& format) {
    std::string text;
    if (date.IsNull() != 0) {
        return text;
    }
    const bool isFullYear = format.yearDigits == 4;
    const int values[] = {std::clamp<int>(date.GetDay(), 1, 31), std::clamp<int>(date.GetMonth(), 1, 12),
                          isFullYear ? date.GetYear() : date.GetYear() % 100};
    for (const int field : kFieldAt[format.order]) {
        if (!text.empty() && format.separator != '\0') {
            text += format.separator;
        }
        AppendPadded(text, values[field], field == kYear && isFullYear ? 4 : 2);
    }
    return text;
}

inline bool SetValid(int day, int month, int year, CDATE& date) noexcept {
    if (year < 0 || !std::in_range<std::int16_t>(year) || day < 1 || day > CDATE::DaysInMonth(month, year)) {
        return false;
    }
    date.Set(static_cast<std::int16_t>(day), static_cast<std::int16_t>(month), static_cast<std::int16_t>(year));
    return true;
}

int FullYear(int twoDigits) noexcept { return 1900 + (twoDigits < 51 ? twoDigits + 100 : twoDigits); }

using PARTS = std::array<std::string_view, 3>;

// At the first two separators; what comes after them is the last part.
bool SplitAtSeparators(std::string_view text, char separator, PARTS& parts) noexcept {
    const std::size_t first = text.find(separator);
    const std::size_t second = first != text.npos ? text.find(separator, first + 1) : text.npos;
    if (second == text.npos) {
        return false;
    }
    parts = {text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
    return true;
}

bool SplitByLength(std::string_view text, const CDATEFORMAT& format, PARTS& parts) noexcept {
    const auto yearDigits = static_cast<std::size_t>(format.yearDigits);
    if (text.size() != yearDigits + 4) {
        return false;
    }
    const std::size_t firstLength = kFieldAt[format.order][0] == kYear ? yearDigits : 2;
    parts = {text.substr(0, firstLength), text.substr(firstLength, 2), text.substr(firstLength + 2)};
    return true;
}

bool Read(std::string_view text, const CDATEFORMAT& format, CDATE& date) noexcept {
    text = text.substr(0, kLongestText);
    PARTS parts;
    if (!(format.separator != '\0' ? SplitAtSeparators(text, format.separator, parts)
                                   : SplitByLength(text, format, parts))) {
        return false;
    }
    int numbers[3];
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (IsDigits(parts[i]) == 0) {
            return false;
        }
        numbers[i] = LeadingInteger(parts[i]);
    }
    const auto& [day, month, year] = kFieldAt[format.order];
    const int fullYear = format.yearDigits == 2 ? FullYear(numbers[year]) : numbers[year];
    return SetValid(numbers[day], numbers[month], fullYear, date);
}

// With a time, the date is the one in the local zone.
bool ReadXmlForm(std::string_view text, const CDATEFORMAT& format, CDATE& date) noexcept {
    text = text.substr(0, kLongestText);
    const std::size_t separator = text.find('T');
    if (separator == text.npos) {
        return Read(text, format, date);
    }
    CDATE utcDate;
    CTIME utcTime;
    if (!Read(text.substr(0, separator), format, utcDate) || !timetext::ReadXml(text.substr(separator + 1), utcTime)) {
        return false;
    }
    CDATETIME moment(utcDate, utcTime);
    moment.ToLocalZone();
    // The zone may lead to a year before 0 or beyond 16 bits.
    if (moment.GetDate().IsDate() == 0) {
        return false;
    }
    date = moment.GetDate();
    return true;
}

bool ReadDigitForms(std::string_view text, CDATE& date) noexcept {
    return datetext::ReadLong(text, date) || datetext::ReadShort(text, date);
}

// Drops '/' and '-', but keeps the character after each as it is: of two in a row only the first is dropped. No more
// than the longest form reads is kept.
std::string WithoutSeparators(std::string_view text) {
    std::string kept;
    for (std::size_t at = 0; at < text.size() && kept.size() < 8; ++at) {
        const bool isSeparator = text[at] == '/' || text[at] == '-';
        if (isSeparator && ++at == text.size()) {
            break;
        }
        kept += text[at];
    }
    return kept;
}

}  // namespace

namespace datetext {

bool ReadLong(std::string_view text, CDATE& date) noexcept {
    return text.size() >= 8 && SetValid(LeadingInteger(text.substr(0, 2)), LeadingInteger(text.substr(2, 2)),
                                        LeadingInteger(text.substr(4, 4)), date);
}

bool ReadShort(std::string_view text, CDATE& date) noexcept {
    return text.size() >= 6 && SetValid(LeadingInteger(text.substr(0, 2)), LeadingInteger(text.substr(2, 2)),
                                        FullYear(LeadingInteger(text.substr(4, 2))), date);
}

bool ReadXml(std::string_view text, CDATE& date) noexcept {
    return ReadXmlForm(text, XmlFormat, date) || ReadXmlForm(text, XmlCompactFormat, date);
}

bool ReadAny(std::string_view text, CDATE& date) noexcept {
    return ReadXmlForm(text, XmlFormat, date) || ReadDigitForms(text, date) ||
           ReadDigitForms(WithoutSeparators(text), date);
}

}  // namespace datetext

CDATE::CDATE(const char* text) noexcept { FromString(text); }

std::string CDATE::ToString() const { return ToStringLong(); }

std::string CDATE::ToStringLong() const { return Write(*this, LongFormat); }

std::string CDATE::ToStringShort() const { return Write(*this, ShortFormat); }

std::string CDATE::ToStringXML() const { return Write(*this, XmlFormat); }

int CDATE::FromString(const char* text) noexcept { return ReadText<datetext::ReadAny>(text, *this); }

int CDATE::FromStringLong(const char* text) noexcept { return ReadText<datetext::ReadLong>(text, *this); }

int CDATE::FromStringShort(const char* text) noexcept { return ReadText<datetext::ReadShort>(text, *this); }

int CDATE::FromStringXML(const char* text) noexcept { return ReadText<datetext::ReadXml>(text, *this); }

int IsStrDate(const char* text) noexcept { return CDATE().FromString(text); }

int IsStrLDate(const char* text) noexcept { return CDATE().FromStringLong(text); }

int IsStrSDate(const char* text) noexcept { return CDATE().FromStringShort(text); }

int IsStrXMLDate(const char* text) noexcept { return CDATE().FromStringXML(text); }

std::ostream& operator<<(std::ostream& out, const CDATE& date) { return out << "CDATE(" << date.ToString() << ')'; }

}  // namespace MLCore
