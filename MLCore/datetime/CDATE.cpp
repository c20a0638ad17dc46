#include <MLCore/datetime/CDATE.h>

#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/datetime/detail/BusinessDays.h>
#include <MLCore/datetime/detail/CDATEFORMAT.h>
#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/LocalZone.h>
#include <MLCore/platform/OleDate.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/text/DecimalText.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kLongestText = 255;

int FullYear(int twoDigits) noexcept { return 1900 + (twoDigits < 51 ? twoDigits + 100 : twoDigits); }

// Drops '/' and '-', but keeps the character behind each as it is: of two in a row only the first goes. No more than
// the longest form looks at is kept.
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

platform::CIVILTIME Midnight(const CDATE& date) noexcept {
    return {date.GetYear(), date.GetMonth(), date.GetDay(), 0, 0, 0};
}

// The day of a week, from 0, whose year is the year of the week: by CCALENDARSTRATEGY::eKindOfFirstWeekOfYear.
constexpr int kDecidingDays[] = {6, 3, 0};

// Inline members that the library offers as symbols too.
[[gnu::used]] CDATE& (CDATE::*const kMoves[])(long) noexcept = {&CDATE::AddDays, &CDATE::AddMonths, &CDATE::AddYears};
[[gnu::used]] void (CDATE::*const kValidate)() noexcept = &CDATE::Validate;

}  // namespace

CDATE::CDATE(const _SYSTEMTIME& time) noexcept
    : mDay(static_cast<std::int16_t>(time.wDay)),
      mMonth(static_cast<std::int16_t>(time.wMonth)),
      mYear(static_cast<std::int16_t>(time.wYear)) {}

CDATE::CDATE(std::uint16_t shortDate) noexcept {
    if (shortDate != 0) {
        mDay = static_cast<std::int16_t>(shortDate & 31);
        mMonth = static_cast<std::int16_t>((shortDate >> 5) & 15);
        mYear = static_cast<std::int16_t>((shortDate >> 9) + 1900);
    }
}

CDATE::CDATE(int longDate) noexcept
    : mDay(static_cast<std::int16_t>(longDate & 0xFF)),
      mMonth(static_cast<std::int16_t>((longDate >> 8) & 0xFF)),
      mYear(static_cast<std::int16_t>(longDate >> 16)) {}

CDATE::CDATE(long longDate) noexcept {
    if (std::in_range<int>(longDate)) {
        *this = CDATE(static_cast<int>(longDate));
    }
}

CDATE::CDATE(double oleDate) noexcept {
    platform::CIVILTIME civil;
    if (oleDate != 0.0 && platform::CivilFromOleDate(oleDate, civil)) {
        FromFields(civil.day, civil.month, civil.year);
    }
}

CDATE::CDATE(const char* text) noexcept { FromString(text); }

const CDATE& CDATE::NullDate() noexcept {
    static const CDATE date;
    return date;
}

const CDATE& CDATE::MinDate() noexcept {
    static const CDATE date(1, 1, 1900);
    return date;
}

const CDATE& CDATE::MaxDate() noexcept {
    static const CDATE date(31, 12, 9999);
    return date;
}

const CDATE& CDATE::MinDateShort() noexcept {
    static const CDATE date(1, 1, 1928);
    return date;
}

const CDATE& CDATE::MaxDateShort() noexcept {
    static const CDATE date(31, 12, 2027);
    return date;
}

CDATE CDATE::Today() noexcept {
    const platform::CIVILTIME now = platform::LocalNow();
    CDATE date;
    date.FromFields(now.day, now.month, now.year);
    return date;
}

int CDATE::IsEndOfMonth() const noexcept { return (*this + 1).GetMonth() != mMonth ? 1 : 0; }

std::int16_t CDATE::GetDayNumber() const noexcept {
    const bool isDate = IsDate() != 0;
    return isDate ? static_cast<std::int16_t>(ComputeDaysFrom1904() - serialday::FromFields(0, 1, mYear)) : 0;
}

std::int16_t CDATE::GetWeekNumber(std::int16_t* year, CCALENDARSTRATEGY* strategy) const {
    if (year != nullptr) {
        *year = mYear;
    }
    if (IsDate() == 0) {
        return 0;
    }
    CCALENDARSTRATEGY& calendar = CCALENDARMANAGER::Resolve(strategy);
    const int firstWeek = calendar.GetFirstWeek();
    const bool isKnownRule =
        firstWeek >= CCALENDARSTRATEGY::FirstWeekContainsNewYear && firstWeek <= CCALENDARSTRATEGY::FirstFullWeek;
    // An unknown rule means the plain one, and the current calendar's weeks rather than those of the calendar given.
    const int firstDay = (isKnownRule ? calendar : CCALENDARMANAGER::Resolve(nullptr)).GetFirstDayOfWeek();
    const std::int32_t weekStart = businessdays::WeekStart(ComputeDaysFrom1904(), firstDay);
    const std::int32_t decidingDay = weekStart + kDecidingDays[isKnownRule ? firstWeek : 0];
    // The deciding day lies in the date's own year or next to it.
    int weekYear = mYear;
    std::int32_t dayOfYear = decidingDay - serialday::FromFields(1, 1, mYear);
    if (dayOfYear < 0) {
        dayOfYear = decidingDay - serialday::FromFields(1, 1, --weekYear);
    } else if (dayOfYear >= 365 && dayOfYear >= 365 + IsYearBissextile()) {
        dayOfYear = decidingDay - serialday::FromFields(1, 1, ++weekYear);
    }
    if (year != nullptr && std::in_range<std::int16_t>(weekYear)) {
        *year = static_cast<std::int16_t>(weekYear);
    }
    return static_cast<std::int16_t>(static_cast<std::uint32_t>(dayOfYear) / 7 + 1);
}

int CDATE::IsOuvre(CCALENDARSTRATEGY* strategy) const {
    const CCALENDARSTRATEGY& calendar = CCALENDARMANAGER::Resolve(strategy);
    return businessdays::IsOuvre(calendar, *this) ? 1 : 0;
}

int CDATE::IsTravaille(CCALENDARSTRATEGY* strategy) const {
    return CCALENDARMANAGER::Resolve(strategy).IsTravaille(*this) != 0 ? 1 : 0;
}

int CDATE::IsFerie(CCALENDARSTRATEGY* strategy) const {
    return CCALENDARMANAGER::Resolve(strategy).IsFerie(*this) != 0 ? 1 : 0;
}

std::int32_t CDATE::ComputeDays(const CDATE& other) const noexcept {
    return IsDate() != 0 && other.IsDate() != 0 ? std::abs(*this - other) : -1;
}

std::int32_t CDATE::ComputeWeeks(const CDATE& other, CCALENDARSTRATEGY* strategy) const {
    if (IsDate() == 0 || other.IsDate() == 0) {
        return -1;
    }
    const auto [first, last] = std::minmax({ComputeDaysFrom1904(), other.ComputeDaysFrom1904()});
    const int firstDay = CCALENDARMANAGER::Resolve(strategy).GetFirstDayOfWeek();
    const std::int32_t weekEnd = businessdays::WeekStart(first, firstDay) + 6;
    return last > weekEnd ? (last - weekEnd + 6) / 7 : 0;
}

std::int32_t CDATE::ComputeMonths(const CDATE& other) const noexcept {
    return std::abs((other.mYear * 12 + other.mMonth) - (mYear * 12 + mMonth));
}

std::int32_t CDATE::ComputeBimestres(const CDATE& other) const noexcept {
    return std::abs((other.mYear * 6 + other.GetBimestreNumber()) - (mYear * 6 + GetBimestreNumber()));
}

std::int32_t CDATE::ComputeTrimestres(const CDATE& other) const noexcept {
    return std::abs((other.mYear * 4 + other.GetTrimestreNumber()) - (mYear * 4 + GetTrimestreNumber()));
}

std::int32_t CDATE::ComputeSemestres(const CDATE& other) const noexcept {
    return std::abs((other.mYear * 2 + other.GetSemestreNumber()) - (mYear * 2 + GetSemestreNumber()));
}

std::int32_t CDATE::ComputeYears(const CDATE& other) const noexcept { return std::abs(other.mYear - mYear); }

std::int32_t CDATE::ComputeDaysOuvre(const CDATE& other, CCALENDARSTRATEGY* strategy) const {
    return businessdays::Count(CCALENDARMANAGER::Resolve(strategy), businessdays::IsOuvre, *this, other);
}

std::int32_t CDATE::ComputeDaysTravaille(const CDATE& other, CCALENDARSTRATEGY* strategy) const {
    return businessdays::Count(CCALENDARMANAGER::Resolve(strategy), businessdays::IsTravaille, *this, other);
}

std::int32_t CDATE::Echelonnement(const CDATE& other, eTypeEchelonnement type, CCALENDARSTRATEGY* strategy) const {
    if (IsDate() == 0 || other.IsDate() == 0) {
        return -1;
    }
    switch (type) {
        case EchelonDay:
            return ComputeDays(other);
        case EchelonWeek:
            return ComputeWeeks(other, strategy);
        case EchelonMonth:
            return ComputeMonths(other);
        case EchelonBimestre:
            return ComputeBimestres(other);
        case EchelonTrimestre:
            return ComputeTrimestres(other);
        case EchelonSemestre:
            return ComputeSemestres(other);
        case EchelonYear:
            return ComputeYears(other);
    }
    return -1;
}

CDATE& CDATE::operator-=(long days) noexcept {
    return AddDays(days == std::numeric_limits<long>::min() ? std::numeric_limits<long>::max() : -days);
}

CDATE CDATE::MonthsFromNoMonth(int day, int month, int year, long months) noexcept {
    long years = months / 12;
    int step = static_cast<int>(months % 12);
    const int reached = month + step;
    if (reached < 1) {
        --years;
        step += 12;
    } else if (reached > 12) {
        ++years;
        step -= 12;
    }
    years = year + std::clamp(years, -serialday::kMostYears, serialday::kMostYears);
    if (!std::in_range<std::int16_t>(years)) {
        return {};
    }
    CDATE date(static_cast<std::int16_t>(day), static_cast<std::int16_t>(month + step),
               static_cast<std::int16_t>(years));
    date.Validate();
    return date;
}

CDATE& CDATE::AddDaysOuvre(long days, CCALENDARSTRATEGY* strategy) {
    const CCALENDARSTRATEGY& calendar = CCALENDARMANAGER::Resolve(strategy);
    if (businessdays::OpenWeekdays(calendar) == 0) {
        *this = days < 0 ? MinDate() : MaxDate();
    } else {
        *this = businessdays::Step(calendar, businessdays::IsOuvre, *this, days);
    }
    return *this;
}

CDATE& CDATE::AddDaysTravaille(long days, CCALENDARSTRATEGY* strategy) {
    *this = businessdays::Step(CCALENDARMANAGER::Resolve(strategy), businessdays::IsTravaille, *this, days);
    return *this;
}

CDATE CDATE::operator++(int) noexcept {
    const CDATE before = *this;
    ++*this;
    return before;
}

CDATE CDATE::operator--(int) noexcept {
    const CDATE before = *this;
    --*this;
    return before;
}

std::string CDATE::ToString() const { return ToString(LongFormat); }

std::string CDATE::ToStringLong() const { return ToString(LongFormat); }

std::string CDATE::ToStringShort() const { return ToString(ShortFormat); }

std::string CDATE::ToStringXML() const { return ToString(XmlFormat); }

std::string CDATE::ToString(const CDATEFORMAT& format) const {
    struct PART {
        int value;
        int digits;
    };
    if (IsNull() != 0) {
        return {};
    }
    const PART day = {std::clamp<int>(mDay, 1, 31), 2};
    const PART month = {std::clamp<int>(mMonth, 1, 12), 2};
    const PART year = format.yearDigits == 4 ? PART{mYear, 4} : PART{mYear % 100, 2};
    // In the order of CDATEFORMAT::ORDER.
    const PART layouts[][3] = {{month, day, year}, {day, month, year}, {year, month, day}};
    std::string text;
    if (format.order < 0 || format.order > CDATEFORMAT::YearMonthDay) {
        return text;
    }
    for (const PART& part : layouts[format.order]) {
        if (!text.empty() && format.separator != '\0') {
            text += format.separator;
        }
        AppendPadded(text, part.value, part.digits);
    }
    return text;
}

std::uint16_t CDATE::ToSDate() const noexcept {
    if (IsNull() != 0) {
        return 0;
    }
    const CDATE date = std::clamp(*this, MinDate(), MaxDateShort());
    return static_cast<std::uint16_t>(date.mDay | (date.mMonth * 32) | ((date.mYear - 1900) * 512));
}

double CDATE::ToWDate() const noexcept {
    double date = 0.0;
    return IsNull() == 0 && platform::OleDateFromCivil(Midnight(*this), date) ? date : 0.0;
}

_SYSTEMTIME CDATE::ToSystemTime() const noexcept {
    return platform::SystemTimeFromCivil(Midnight(*this), (serialday::Weekday(ComputeDaysFrom1904()) + 1) % 7);
}

int CDATE::FromFields(int day, int month, int year) noexcept {
    if (year < 0 || !std::in_range<std::int16_t>(year) || day < 1 || day > DaysInMonth(month, year)) {
        return 0;
    }
    mDay = static_cast<std::int16_t>(day);
    mMonth = static_cast<std::int16_t>(month);
    mYear = static_cast<std::int16_t>(year);
    return 1;
}

int CDATE::FromText(std::string_view text, const CDATEFORMAT& format) noexcept {
    text = text.substr(0, kLongestText);
    std::string_view parts[3];
    if (format.separator != '\0') {
        const std::size_t first = text.find(format.separator);
        const std::size_t second = first != text.npos ? text.find(format.separator, first + 1) : text.npos;
        if (second == text.npos) {
            return 0;
        }
        parts[0] = text.substr(0, first);
        parts[1] = text.substr(first + 1, second - first - 1);
        parts[2] = text.substr(second + 1);
    } else {
        const auto yearDigits = static_cast<std::size_t>(format.yearDigits);
        if (text.size() != yearDigits + 4) {
            return 0;
        }
        const std::size_t firstLength = format.order == CDATEFORMAT::YearMonthDay ? yearDigits : 2;
        parts[0] = text.substr(0, firstLength);
        parts[1] = text.substr(firstLength, 2);
        parts[2] = text.substr(firstLength + 2);
    }
    int numbers[3];
    for (int i = 0; i < 3; ++i) {
        if (IsDigits(parts[i]) == 0) {
            return 0;
        }
        numbers[i] = LeadingInteger(parts[i]);
    }
    // Where day, month and year stand, in the order of CDATEFORMAT::ORDER.
    constexpr int kPlaces[][3] = {{1, 0, 2}, {0, 1, 2}, {2, 1, 0}};
    const auto& [day, month, year] = kPlaces[format.order];
    return FromFields(numbers[day], numbers[month], format.yearDigits == 2 ? FullYear(numbers[year]) : numbers[year]);
}

int CDATE::FromXmlText(std::string_view text, const CDATEFORMAT& format) noexcept {
    text = text.substr(0, kLongestText);
    const std::size_t separator = text.find('T');
    CDATE date;
    if (date.FromText(text.substr(0, separator), format) == 0) {
        return 0;
    }
    if (separator != text.npos) {
        CTIME time;
        if (time.FromXmlText(text.substr(separator + 1)) == 0) {
            return 0;
        }
        CDATETIME moment(date, time);
        moment.ToLocalZone();
        date = moment.GetDate();
        // The zone may lead out of the years there are.
        if (date.IsDate() == 0) {
            return 0;
        }
    }
    *this = date;
    return 1;
}

int CDATE::FromXmlText(std::string_view text) noexcept {
    return FromXmlText(text, XmlFormat) != 0 || FromXmlText(text, XmlCompactFormat) != 0 ? 1 : 0;
}

int CDATE::FromLongText(std::string_view text) noexcept {
    return text.size() >= 8 ? FromFields(LeadingInteger(text.substr(0, 2)), LeadingInteger(text.substr(2, 2)),
                                         LeadingInteger(text.substr(4, 4)))
                            : 0;
}

int CDATE::FromShortText(std::string_view text) noexcept {
    return text.size() >= 6 ? FromFields(LeadingInteger(text.substr(0, 2)), LeadingInteger(text.substr(2, 2)),
                                         FullYear(LeadingInteger(text.substr(4, 2))))
                            : 0;
}

int CDATE::FromDigitForms(std::string_view text) noexcept {
    return FromLongText(text) != 0 || FromShortText(text) != 0 ? 1 : 0;
}

int CDATE::FromString(const char* text) noexcept {
    if (text == nullptr) {
        return 0;
    }
    const std::string_view view(text);
    return FromXmlText(view, XmlFormat) != 0 || FromDigitForms(view) != 0 ||
                   FromDigitForms(WithoutSeparators(view)) != 0
               ? 1
               : 0;
}

int CDATE::FromStringLong(const char* text) noexcept { return text != nullptr ? FromLongText(text) : 0; }

int CDATE::FromStringShort(const char* text) noexcept { return text != nullptr ? FromShortText(text) : 0; }

int CDATE::FromStringXML(const char* text) noexcept { return text != nullptr ? FromXmlText(text) : 0; }

CDATE AddDaysOuvre(CDATE date, long days, CCALENDARSTRATEGY* strategy) { return date.AddDaysOuvre(days, strategy); }

CDATE AddDaysTravaille(CDATE date, long days, CCALENDARSTRATEGY* strategy) {
    return date.AddDaysTravaille(days, strategy);
}

CDATE NextDateOuvre(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    const CCALENDARSTRATEGY& calendar = CCALENDARMANAGER::Resolve(strategy);
    return businessdays::OpenWeekdays(calendar) != 0 ? businessdays::Next(calendar, businessdays::IsOuvre, date)
                                                     : CDATE::MaxDate();
}

CDATE PreviousDateOuvre(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    const CCALENDARSTRATEGY& calendar = CCALENDARMANAGER::Resolve(strategy);
    return businessdays::OpenWeekdays(calendar) != 0 ? businessdays::Previous(calendar, businessdays::IsOuvre, date)
                                                     : CDATE::MinDate();
}

CDATE NextDateTravaille(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    return businessdays::Next(CCALENDARMANAGER::Resolve(strategy), businessdays::IsTravaille, date);
}

CDATE PreviousDateTravaille(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    return businessdays::Previous(CCALENDARMANAGER::Resolve(strategy), businessdays::IsTravaille, date);
}

int IsStrDate(const char* text) noexcept { return CDATE().FromString(text); }

int IsStrLDate(const char* text) noexcept { return CDATE().FromStringLong(text); }

int IsStrSDate(const char* text) noexcept { return CDATE().FromStringShort(text); }

int IsStrXMLDate(const char* text) noexcept { return CDATE().FromStringXML(text); }

std::ostream& operator<<(std::ostream& out, const CDATE& date) { return out << "CDATE(" << date.ToString() << ')'; }

}  // namespace MLCore
