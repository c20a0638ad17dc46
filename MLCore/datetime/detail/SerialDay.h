/// Serial days: the proleptic Gregorian calendar as a count of days from 1 January 1904, which is day 0.
///
/// Both directions are closed forms after C. Neri and L. Schneider, "Euclidean affine functions and their application
/// to calendar algorithms", Software: Practice and Experience 53 (2023); a table spares one of them for the years in
/// common use.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace MLCore::serialday {

struct FIELDS {
    int year;
    int month;
    int day;
};

// Years are counted from 1 March of a year far enough back for unsigned arithmetic; 400 years are a whole cycle.
inline constexpr std::uint32_t kYearShift = 400U * 83U;
inline constexpr std::uint32_t kDayShift = 146097U * 83U + 695361U;  // from 1 March of that year to 1 January 1904

/// The serial day of 1 March of a year. Any 16-bit year is taken, and the one before the first.
constexpr std::int32_t FirstOfMarchByFormula(int year) noexcept {
    const std::uint32_t y = static_cast<std::uint32_t>(year) + kYearShift;
    const std::uint32_t century = y / 100;
    return static_cast<std::int32_t>(1461 * y / 4 - century + century / 4 - kDayShift);
}

// The same for the years in common use, at half the time.
inline constexpr int kFirstTabledYear = 1899;
inline constexpr auto kFirstsOfMarch = [] {
    std::array<std::int32_t, 302> days{};
    for (std::size_t i = 0; i < days.size(); ++i) {
        days[i] = FirstOfMarchByFormula(kFirstTabledYear + static_cast<int>(i));
    }
    return days;
}();

constexpr std::int32_t FirstOfMarch(int year) noexcept {
    const auto at = static_cast<std::uint32_t>(year - kFirstTabledYear);
    return at < kFirstsOfMarch.size() ? kFirstsOfMarch[at] : FirstOfMarchByFormula(year);
}

// Where a month starts: in days from 1 March, of the year before for January and February. The 13th is the next
// January.
struct MONTHSTART {
    std::int16_t yearStep;
    std::int16_t days;
};
inline constexpr MONTHSTART kMonthStarts[] = {{-1, 306}, {-1, 337}, {0, 0},   {0, 31},  {0, 61},  {0, 92}, {0, 122},
                                              {0, 153},  {0, 184},  {0, 214}, {0, 245}, {0, 275}, {0, 306}};

/// The serial day of the fields; any 16-bit values are taken. As in a walk from month to month, a month below 1 adds no
/// days and a month above 12 adds those of the whole year; days are just added.
constexpr std::int32_t FromFields(int day, int month, int year) noexcept {
    std::uint32_t at = static_cast<std::uint32_t>(month) - 1U;
    if (at > 11U) [[unlikely]] {  // one test for the rare case of both sides
        at = month < 1 ? 0U : 12U;
    }
    const MONTHSTART& start = kMonthStarts[at];
    return FirstOfMarch(year + start.yearStep) + start.days + day - 1;
}

/// The date of a serial day that FromFields() gives for a year of 16 bits; for other numbers the fields have no
/// meaning.
constexpr FIELDS ToFields(std::int32_t serial) noexcept {
    const std::uint32_t n1 = 4 * (static_cast<std::uint32_t>(serial) + kDayShift) + 3;
    const std::uint32_t century = n1 / 146097;
    const std::uint32_t n2 = n1 % 146097 | 3;  // four times the day of the century, plus 3
    const std::uint64_t p2 = std::uint64_t{2939745} * n2;
    const auto yearOfCentury = static_cast<std::uint32_t>(p2 >> 32);
    const std::uint32_t dayOfYear = static_cast<std::uint32_t>(p2) / 2939745 / 4;
    const std::uint32_t n3 = 2141 * dayOfYear + 197913;
    // January and February end the shifted year. As a mask: a branch would be guessed wrong for them.
    const std::uint32_t isNextYear = 0U - (dayOfYear >= 306 ? 1U : 0U);
    const std::uint32_t year = 100 * century + yearOfCentury - kYearShift - isNextYear;
    const std::uint32_t month = (n3 >> 16) - (isNextYear & 12U);
    const std::uint32_t day = (n3 & 0xFFFFU) / 2141 + 1;
    return {static_cast<std::int32_t>(year), static_cast<int>(month), static_cast<int>(day)};
}

/// 1 January 1970, where the clocks of systems start.
inline constexpr std::int32_t kUnixEpoch = FromFields(1, 1, 1970);

/// In a common year.
inline constexpr signed char kDaysInMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// More than the distance of any two years of 16 bits, plus one that a month carries over.
inline constexpr long kMostYears = 65538;

/// The first and the last day whose year fits 16 bits.
inline constexpr std::int32_t kFirst = FromFields(1, 1, -32768);
inline constexpr std::int32_t kLast = FromFields(31, 12, 32767);

/// The day of the week, 0 = Monday to 6 = Sunday, for days before 1904 too.
constexpr int Weekday(std::int32_t serial) noexcept {
    constexpr std::uint32_t kWeeks = 7U << 28U;  // whole weeks that leave no serial day negative
    return static_cast<int>((static_cast<std::uint32_t>(serial) + kWeeks - 3U) % 7U);
}

static_assert(FromFields(1, 1, 1904) == 0 && FromFields(1, 3, 1904) == 60 && FromFields(31, 12, 1903) == -1);
static_assert(FromFields(1, 1, 2000) == 35064 && ToFields(35064).year == 2000 && ToFields(-1).day == 31);

}  // namespace MLCore::serialday
