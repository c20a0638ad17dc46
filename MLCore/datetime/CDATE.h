#pragma once

#include <MLCore/datetime/detail/DayMonthYear.h>
#include <MLCore/datetime/detail/SerialDay.h>
#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>

namespace MLCore {

class CCALENDARSTRATEGY;

/// A calendar date: day, month and year of the proleptic Gregorian calendar, or null. A value type of 6 bytes, copied
/// freely.
///
///     CDATE date(31, 1, 2024);                      // day, month, year
///     date.AddMonths(1);                            // 29/2/2024: the day is lowered to the length of the month
///     CDATE::eDay day = date.GetDayOfWeek();        // Thursday
///     CDATE next = NextDateOuvre(date);             // 1/3/2024: the next business day of the current calendar
///     int isRead = date.FromString("30/02/2024");   // 0, and the date is unchanged: parsers return 1 or 0
///
/// A date stores any fields: 31/2/2024 can be stored, compared and counted with; IsDate() says that it is not a valid
/// date. The null date 0/0/0 sorts before all valid dates. Valid years begin with 0. Arithmetic also gives earlier
/// years if they fit 16 bits, and the null date for a year that does not fit.
///
/// No operation fails. Only texts and the first use of the current calendar take memory; without it, std::bad_alloc
/// passes through. Exceptions of an application's own strategy pass through too.
///
/// A CCALENDARSTRATEGY* is borrowed for the call, and null means the current calendar (CCALENDARMANAGER).
class MLCORE_API CDATE {
public:
    enum eDay : int { Monday, Tuesday, Wednesday, Thursday, Friday, Saturday, Sunday };
    /// The number of weekdays.
    static constexpr int kDayCount = Sunday + 1;

    /// The kinds of successive periods into which a time can be divided (échelonnement).
    enum eTypeEchelonnement : int {
        EchelonDay,
        EchelonWeek,
        EchelonMonth,
        EchelonBimestre,   ///< two months
        EchelonTrimestre,  ///< a quarter
        EchelonSemestre,   ///< half a year
        EchelonYear,
    };
    /// The number of these kinds.
    static constexpr int kEchelonCount = EchelonYear + 1;

    /// The null date.
    constexpr CDATE() noexcept = default;
    /// Stores the fields as they are. The day comes first. In a constant expression a day above 31 or a month above 12
    /// does not compile. When g++ or clang optimizes, CDATE(2026, 4, 30) does not compile anywhere.
    constexpr CDATE(std::int16_t day, std::int16_t month, std::int16_t year) noexcept;
    /// Takes wDay, wMonth and wYear.
    explicit CDATE(const _SYSTEMTIME& time) noexcept;
    /// From a short date, see ToSDate(). 0 gives the null date.
    explicit CDATE(std::uint16_t shortDate) noexcept;
    /// From a long date, see ToLDate(). The number 20240305 is not one: write it as a text for FromStringXML(). A
    /// `long` that does not fit 32 bits gives the null date.
    explicit CDATE(int longDate) noexcept;
    explicit CDATE(long longDate) noexcept;
    /// The day of an OLE Automation date; the null date for 0.0 and for a number that is not such a date.
    explicit CDATE(double oleDate) noexcept;
    /// Calls FromString(); the null date when that fails.
    explicit CDATE(const char* text) noexcept;

    [[nodiscard]] static const CDATE& NullDate() noexcept;
    [[nodiscard]] static const CDATE& Null() noexcept { return NullDate(); }
    [[nodiscard]] static const CDATE& MinDate() noexcept;  ///< 1 January 1900
    [[nodiscard]] static const CDATE& Min() noexcept { return MinDate(); }
    [[nodiscard]] static const CDATE& MaxDate() noexcept;  ///< 31 December 9999
    [[nodiscard]] static const CDATE& Max() noexcept { return MaxDate(); }
    [[nodiscard]] static const CDATE& MinDateShort() noexcept;  ///< 1 January 1928
    [[nodiscard]] static const CDATE& MaxDateShort() noexcept;  ///< 31 December 2027
    /// Today's date in the local zone.
    [[nodiscard]] static CDATE Today() noexcept;

    [[nodiscard]] constexpr std::int16_t GetDay() const noexcept { return mDay; }
    [[nodiscard]] constexpr std::int16_t GetMonth() const noexcept { return mMonth; }
    [[nodiscard]] constexpr std::int16_t GetYear() const noexcept { return mYear; }
    constexpr void SetDay(std::int16_t day) noexcept { mDay = day; }
    constexpr void SetMonth(std::int16_t month) noexcept { mMonth = month; }
    constexpr void SetYear(std::int16_t year) noexcept { mYear = year; }
    /// As the constructor does.
    constexpr void Set(std::int16_t day, std::int16_t month, std::int16_t year) noexcept { *this = {day, month, year}; }
    /// Makes it the null date.
    constexpr void Clear() noexcept { *this = {}; }

    [[nodiscard]] constexpr int IsNull() const noexcept { return (mDay | mMonth | mYear) == 0 ? 1 : 0; }
    constexpr bool operator!() const noexcept { return IsNull() != 0; }
    /// 1 when the fields form a valid date of the year 0 or later.
    [[nodiscard]] constexpr int IsDate() const noexcept;
    /// 1 in a leap year.
    [[nodiscard]] constexpr int IsYearBissextile() const noexcept { return IsYearBissextile(mYear); }
    /// 1 when the next day lies in another month.
    [[nodiscard]] int IsEndOfMonth() const noexcept;
    /// Lowers a day that is beyond the end of its month; changes nothing else.
    MLCORE_TEMPLATE_API constexpr void Validate() noexcept;

    /// The day of the week, counted from Monday 4 January 1904 with a signed remainder: before that day, dates other
    /// than Mondays give the weekday minus 7 (-6..-1). 1 January 1904 gives -3. That is intended.
    [[nodiscard]] constexpr eDay GetDayOfWeek() const noexcept;
    /// The day of the year, 1 on 1 January; 0 when the date is not valid.
    [[nodiscard]] std::int16_t GetDayNumber() const noexcept;
    /// The number of the week under the strategy's first day of the week and rule for week 1. `year` (may be null)
    /// receives the year that the week belongs to, or the date's own year if that one does not fit 16 bits. A date that
    /// is not valid gives 0 and its year field.
    [[nodiscard]] std::int16_t GetWeekNumber(std::int16_t* year = nullptr, CCALENDARSTRATEGY* strategy = nullptr) const;
    /// The number of the bimestre (1..6), trimestre (1..4) and semestre (1..2) in the year, computed from the month
    /// alone.
    [[nodiscard]] constexpr std::int16_t GetBimestreNumber() const noexcept;
    [[nodiscard]] constexpr std::int16_t GetTrimestreNumber() const noexcept;
    [[nodiscard]] constexpr std::int16_t GetSemestreNumber() const noexcept;

    /// 1 on a day of the week that is open for business (ouvré) and not a public holiday.
    [[nodiscard]] int IsOuvre(CCALENDARSTRATEGY* strategy = nullptr) const;
    /// 1 on a worked day (travaillé), by the strategy's own rule.
    [[nodiscard]] int IsTravaille(CCALENDARSTRATEGY* strategy = nullptr) const;
    /// 1 on a public holiday (férié).
    [[nodiscard]] int IsFerie(CCALENDARSTRATEGY* strategy = nullptr) const;

    /// Days from 1 January 1904, negative for earlier dates. Defined for any fields.
    [[nodiscard]] constexpr std::int32_t ComputeDaysFrom1904() const noexcept {
        return serialday::FromFields(mDay, mMonth, mYear);
    }
    /// The exact inverse; the null date when the year does not fit 16 bits.
    constexpr void From1904(long serial) noexcept;

    /// The distance to another date, never negative, in either order. Days, weeks and business days are -1 when one of
    /// the two is not valid; the others take the fields as they are.
    [[nodiscard]] std::int32_t ComputeDays(const CDATE& other) const noexcept;
    /// The number of week ends passed from the earlier to the later date.
    [[nodiscard]] std::int32_t ComputeWeeks(const CDATE& other, CCALENDARSTRATEGY* strategy = nullptr) const;
    [[nodiscard]] std::int32_t ComputeMonths(const CDATE& other) const noexcept;
    [[nodiscard]] std::int32_t ComputeBimestres(const CDATE& other) const noexcept;
    [[nodiscard]] std::int32_t ComputeTrimestres(const CDATE& other) const noexcept;
    [[nodiscard]] std::int32_t ComputeSemestres(const CDATE& other) const noexcept;
    [[nodiscard]] std::int32_t ComputeYears(const CDATE& other) const noexcept;
    /// The business days from the earlier date, counted, to the later, not counted. Fast over any distance with the
    /// library's own calendars; linear in the days with an application's own strategy.
    [[nodiscard]] std::int32_t ComputeDaysOuvre(const CDATE& other, CCALENDARSTRATEGY* strategy = nullptr) const;
    /// The same for worked days.
    [[nodiscard]] std::int32_t ComputeDaysTravaille(const CDATE& other, CCALENDARSTRATEGY* strategy = nullptr) const;
    /// The count for this kind of period; -1 when one of the two is not valid or the kind is unknown.
    [[nodiscard]] std::int32_t Echelonnement(const CDATE& other, eTypeEchelonnement type,
                                             CCALENDARSTRATEGY* strategy = nullptr) const;

    /// Moves by days; negative numbers move back. Arithmetic treats the null date like any other and counts from its
    /// fields: null + 1 day is 1/1/0. Call IsNull() first where a date may be null.
    MLCORE_TEMPLATE_API constexpr CDATE& AddDays(long days) noexcept;
    /// Keeps the day if the new month has it, and lowers it otherwise: 31 January + 1 month is the end of February.
    MLCORE_TEMPLATE_API constexpr CDATE& AddMonths(long months) noexcept;
    /// AddMonths() of 12 months a year: 29 February 2024 + 1 year is 28 February 2025.
    MLCORE_TEMPLATE_API constexpr CDATE& AddYears(long years) noexcept;
    /// Moves by `days` business days, not counting the day it starts from, and stops at MinDate or MaxDate; a date at
    /// or beyond the bound in its direction stays the same. If no day of the week is open for business, it becomes
    /// MinDate for negative `days`, MaxDate otherwise, 0 included. When the strategy throws, the date stays the same.
    /// Takes as much time as ComputeDaysOuvre().
    CDATE& AddDaysOuvre(long days, CCALENDARSTRATEGY* strategy = nullptr);
    /// The same by worked days; only the bounds stop it.
    CDATE& AddDaysTravaille(long days, CCALENDARSTRATEGY* strategy = nullptr);

    CDATE& operator+=(long days) noexcept { return AddDays(days); }
    CDATE& operator-=(long days) noexcept;
    CDATE& operator++() noexcept { return AddDays(1); }
    CDATE& operator--() noexcept { return AddDays(-1); }
    CDATE operator++(int) noexcept;
    CDATE operator--(int) noexcept;
    friend CDATE operator+(CDATE date, long days) noexcept { return date += days; }
    friend CDATE operator-(CDATE date, long days) noexcept { return date -= days; }
    friend CDATE operator+(long days, CDATE date) noexcept { return date += days; }
    /// The number of days from right to left, negative when the left one is the earlier.
    friend constexpr std::int32_t operator-(const CDATE& left, const CDATE& right) noexcept {
        return left.ComputeDaysFrom1904() - right.ComputeDaysFrom1904();
    }

    /// Dates compare by the key day | month * 256 | year * 65536: by year, month, day where the fields are in range.
    /// (Fields far out of range can share a key, hence the weak order.)
    friend constexpr bool operator==(const CDATE& left, const CDATE& right) noexcept {
        return left.ComparisonKey() == right.ComparisonKey();
    }
    friend constexpr std::weak_ordering operator<=>(const CDATE& left, const CDATE& right) noexcept {
        return left.ComparisonKey() <=> right.ComparisonKey();
    }

    /// "05032024", the same as ToStringLong(). The null date gives "" in all texts. A day or month out of range is
    /// written as the nearest one in range.
    [[nodiscard]] std::string ToString() const;
    [[nodiscard]] std::string ToStringLong() const;
    [[nodiscard]] std::string ToStringShort() const;  ///< "050324"
    [[nodiscard]] std::string ToStringXML() const;    ///< "2024-03-05"
    /// 16 bits: day, month << 5, (year - 1900) << 9. A date after 2027 gives the last day of 2027, one before 1900 the
    /// first of 1900, the null date 0.
    [[nodiscard]] std::uint16_t ToSDate() const noexcept;
    /// 32 bits: day, month << 8, year << 16.
    [[nodiscard]] constexpr std::int32_t ToLDate() const noexcept { return ComparisonKey(); }
    /// The OLE Automation date (days from 30 December 1899); 0.0 for the null date and for a date that the system
    /// refuses. The system accepts the years 100 to 9999. It takes a year below 100 as the last two digits of a year
    /// near the present (0 is 2000, 99 is 1999).
    [[nodiscard]] double ToWDate() const noexcept;
    /// The fields, wDayOfWeek (0 = Sunday) and the time 0. <MLCore/platform/WinTypes.h> completes the type.
    [[nodiscard]] _SYSTEMTIME ToSystemTime() const noexcept;

    /// Reads a date in one of many formats: YYYY-MM-DD, optionally with "T" and a time as in FromStringXML(); DDMMYYYY;
    /// DDMMYY; and the last two with "/" or "-" between. Returns 1, or 0 and leaves the date unchanged; null gives 0.
    ///
    /// It is lenient, tries the formats in this order, and reads some texts as dates that nobody meant. "05-03-24" is
    /// 24 March of the year 5, because the first format has no fixed lengths; "2010-13-01" does not match it and then
    /// matches a later one. This is kept for existing data. If the format is known, use its own reader. All readers
    /// have the same results as this one.
    int FromString(const char* text) noexcept;
    /// Reads DDMMYYYY from the first 8 characters, as numbers in C read them ("1a" is 1); the rest is ignored.
    int FromStringLong(const char* text) noexcept;
    /// Reads DDMMYY from the first 6 characters; the rest is ignored. Years 00..50 are 20xx, 51..99 are 19xx.
    int FromStringShort(const char* text) noexcept;
    /// Reads YYYY-MM-DD, whose lengths are not checked ("2024-3-5" is read), or YYYYMMDD. With "T" and a time
    /// (CTIME::FromStringXML) after it, the moment is taken as UTC and the date is the local one.
    int FromStringXML(const char* text) noexcept;

    /// The number of days of the month; 0 for a month outside 1..12.
    [[nodiscard]] static constexpr int DaysInMonth(int month, int year) noexcept;

private:
    static constexpr bool IsMonth(int month) noexcept { return static_cast<unsigned>(month) - 1U < 12U; }
    static constexpr int IsYearBissextile(long year) noexcept;
    // AddMonths() for a month outside 1..12. Takes the fields: with a CDATE as the parameter, callers would keep their
    // date in memory.
    [[nodiscard]] static CDATE MonthsFromNoMonth(int day, int month, int year, long months) noexcept;
    [[nodiscard]] constexpr std::int32_t ComparisonKey() const noexcept {
        return mDay | (mMonth * 256) | (mYear * 65536);
    }

    std::int16_t mDay = 0;
    std::int16_t mMonth = 0;
    std::int16_t mYear = 0;
};

static_assert(sizeof(CDATE) == 6 && alignof(CDATE) == 2);

constexpr CDATE::CDATE(std::int16_t day, std::int16_t month, std::int16_t year) noexcept
    : mDay(day), mMonth(month), mYear(year) {
    daymonthyear::Check(day, month, year);
}

constexpr int CDATE::IsDate() const noexcept {
    // The common year first: nearly all dates are in it.
    return mYear >= 0 && mDay >= 1 && IsMonth(mMonth) &&
                   (mDay <= serialday::kDaysInMonth[mMonth - 1] || mDay <= DaysInMonth(mMonth, mYear))
               ? 1
               : 0;
}

constexpr void CDATE::Validate() noexcept {
    const int days = DaysInMonth(mMonth, mYear);
    mDay = std::min<std::int16_t>(mDay, days != 0 ? static_cast<std::int16_t>(days) : 31);
}

constexpr CDATE::eDay CDATE::GetDayOfWeek() const noexcept {
    return static_cast<eDay>((ComputeDaysFrom1904() - 3) % kDayCount);
}

constexpr std::int16_t CDATE::GetBimestreNumber() const noexcept {
    return static_cast<std::int16_t>((mMonth - 1) / 2 + 1);
}

constexpr std::int16_t CDATE::GetTrimestreNumber() const noexcept {
    return static_cast<std::int16_t>((mMonth - 1) / 3 + 1);
}

constexpr std::int16_t CDATE::GetSemestreNumber() const noexcept {
    return static_cast<std::int16_t>((mMonth - 1) / 6 + 1);
}

constexpr void CDATE::From1904(long serial) noexcept {
    // A mask instead of a branch, so that compilers can convert several dates in one instruction.
    const auto day = static_cast<std::int32_t>(serial);
    const int mask = -static_cast<int>(day == serial && day >= serialday::kFirst && day <= serialday::kLast);
    const serialday::FIELDS fields = serialday::ToFields(day);
    mDay = static_cast<std::int16_t>(fields.day & mask);
    mMonth = static_cast<std::int16_t>(fields.month & mask);
    mYear = static_cast<std::int16_t>(fields.year & mask);
}

constexpr CDATE& CDATE::AddDays(long days) noexcept {
    // Within the days that every month has, the serial day is not needed.
    const unsigned long day = static_cast<unsigned long>(mDay) + static_cast<unsigned long>(days);
    if (day - 1 < 28 && IsMonth(mMonth)) {
        mDay = static_cast<std::int16_t>(day);
    } else {
        // No date is further from another than this, so the sum below cannot overflow.
        constexpr long kMostDays = 366 * serialday::kMostYears;
        From1904(ComputeDaysFrom1904() + std::clamp(days, -kMostDays, kMostDays));
    }
    return *this;
}

constexpr CDATE& CDATE::AddMonths(long months) noexcept {
    if (!IsMonth(mMonth)) {
        return *this = MonthsFromNoMonth(mDay, mMonth, mYear, months);
    }
    // Months from January of the first year that 16 bits hold; below it the sum wraps and is too large as well.
    const unsigned long reached =
        static_cast<unsigned long>((mYear + 32768) * 12 + mMonth - 1) + static_cast<unsigned long>(months);
    if (reached >= 65536UL * 12) {
        Clear();
        return *this;
    }
    const auto month = static_cast<std::uint32_t>(reached);
    mYear = static_cast<std::int16_t>(static_cast<int>(month / 12) - 32768);
    mMonth = static_cast<std::int16_t>(month % 12 + 1);
    if (mDay > 28) {
        Validate();
    }
    return *this;
}

constexpr CDATE& CDATE::AddYears(long years) noexcept {
    return AddMonths(12 * std::clamp(years, -serialday::kMostYears, serialday::kMostYears));
}

constexpr int CDATE::DaysInMonth(int month, int year) noexcept {
    if (!IsMonth(month)) {
        return 0;
    }
    return month == 2 && IsYearBissextile(year) != 0 ? 29 : serialday::kDaysInMonth[month - 1];
}

constexpr int CDATE::IsYearBissextile(long year) noexcept {
    // A year is a leap year if 4 divides it, a century only if 16 divides it.
    return (year & (year % 25 != 0 ? 3 : 15)) == 0 ? 1 : 0;
}

/// Each returns a moved copy of the date.
[[nodiscard]] inline CDATE AddDays(CDATE date, long days) noexcept { return date.AddDays(days); }
[[nodiscard]] inline CDATE AddMonths(CDATE date, long months) noexcept { return date.AddMonths(months); }
[[nodiscard]] inline CDATE AddYears(CDATE date, long years) noexcept { return date.AddYears(years); }
[[nodiscard]] MLCORE_API CDATE AddDaysOuvre(CDATE date, long days, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATE AddDaysTravaille(CDATE date, long days, CCALENDARSTRATEGY* strategy = nullptr);

/// The nearest business day after (or before) the date, never the date itself. MaxDate (or MinDate) if there is none up
/// to that bound, or if no day of the week is open for business.
[[nodiscard]] MLCORE_API CDATE NextDateOuvre(const CDATE& date, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATE PreviousDateOuvre(const CDATE& date, CCALENDARSTRATEGY* strategy = nullptr);
/// The same for worked days; only the bounds stop the search.
[[nodiscard]] MLCORE_API CDATE NextDateTravaille(const CDATE& date, CCALENDARSTRATEGY* strategy = nullptr);
[[nodiscard]] MLCORE_API CDATE PreviousDateTravaille(const CDATE& date, CCALENDARSTRATEGY* strategy = nullptr);

/// 1 when FromString() reads the text; 0 for null.
[[nodiscard]] MLCORE_API int IsStrDate(const char* text) noexcept;
/// The same for FromStringLong(), FromStringShort() and FromStringXML().
[[nodiscard]] MLCORE_API int IsStrLDate(const char* text) noexcept;
[[nodiscard]] MLCORE_API int IsStrSDate(const char* text) noexcept;
[[nodiscard]] MLCORE_API int IsStrXMLDate(const char* text) noexcept;

/// Writes "CDATE(05032024)"; for the null date "CDATE()".
MLCORE_API std::ostream& operator<<(std::ostream& out, const CDATE& date);

}  // namespace MLCore

template <>
struct std::hash<MLCore::CDATE> {
    std::size_t operator()(const MLCore::CDATE& date) const noexcept {
        return std::hash<std::int32_t>()(date.ToLDate());
    }
};
