#include <MLCore/datetime/CDATE.h>

#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/detail/BusinessDays.h>
#include <MLCore/platform/CivilTime.h>
#include <MLCore/platform/LocalZone.h>
#include <MLCore/platform/OleDate.h>
#include <MLCore/platform/WinTypes.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <utility>

namespace MLCore {

namespace {

using businessdays::DayKind;

platform::CIVILTIME Midnight(const CDATE& date) noexcept {
    return {date.GetYear(), date.GetMonth(), date.GetDay(), 0, 0, 0};
}

// The date of a time that the system gives; null where the year does not fit.
CDATE DateOf(const platform::CIVILTIME& time) noexcept {
    if (!std::in_range<std::int16_t>(time.year)) {
        return {};
    }
    return {static_cast<std::int16_t>(time.day), static_cast<std::int16_t>(time.month),
            static_cast<std::int16_t>(time.year)};
}

// The day of a week, from 0, whose year is the year of the week: by CCALENDARSTRATEGY::eKindOfFirstWeekOfYear.
constexpr int kDecidingDays[] = {6, 3, 0};
static_assert(std::size(kDecidingDays) == CCALENDARSTRATEGY::kFirstWeekCount);

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
        *this = DateOf(civil);
    }
}

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

CDATE CDATE::Today() noexcept { return DateOf(platform::LocalNow()); }

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
    const bool isKnownRule = firstWeek >= 0 && firstWeek < CCALENDARSTRATEGY::kFirstWeekCount;
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
    return businessdays::IsOuvre(CCALENDARMANAGER::Resolve(strategy), *this) ? 1 : 0;
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
    return businessdays::Count(CCALENDARMANAGER::Resolve(strategy), DayKind::Ouvre, *this, other);
}

std::int32_t CDATE::ComputeDaysTravaille(const CDATE& other, CCALENDARSTRATEGY* strategy) const {
    return businessdays::Count(CCALENDARMANAGER::Resolve(strategy), DayKind::Travaille, *this, other);
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
    *this = businessdays::Step(CCALENDARMANAGER::Resolve(strategy), DayKind::Ouvre, *this, days);
    return *this;
}

CDATE& CDATE::AddDaysTravaille(long days, CCALENDARSTRATEGY* strategy) {
    *this = businessdays::Step(CCALENDARMANAGER::Resolve(strategy), DayKind::Travaille, *this, days);
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
    return platform::SystemTimeFromCivil(Midnight(*this), (serialday::Weekday(ComputeDaysFrom1904()) + 1) % kDayCount);
}

CDATE AddDaysOuvre(CDATE date, long days, CCALENDARSTRATEGY* strategy) { return date.AddDaysOuvre(days, strategy); }

CDATE AddDaysTravaille(CDATE date, long days, CCALENDARSTRATEGY* strategy) {
    return date.AddDaysTravaille(days, strategy);
}

CDATE NextDateOuvre(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    return businessdays::Next(CCALENDARMANAGER::Resolve(strategy), DayKind::Ouvre, date);
}

CDATE PreviousDateOuvre(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    return businessdays::Previous(CCALENDARMANAGER::Resolve(strategy), DayKind::Ouvre, date);
}

CDATE NextDateTravaille(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    return businessdays::Next(CCALENDARMANAGER::Resolve(strategy), DayKind::Travaille, date);
}

CDATE PreviousDateTravaille(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    return businessdays::Previous(CCALENDARMANAGER::Resolve(strategy), DayKind::Travaille, date);
}

}  // namespace MLCore
