/// Serial days: the proleptic Gregorian calendar as a count of days from 1 January 1904, which is day 0.
///
/// Both directions are closed forms after C. Neri and L. Schneider, "Euclidean affine functions and their application to
/// calendar algorithms", Software: Practice and Experience 53 (2023). CDATE is the class to use; these serve it.
#pragma once

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

/// The serial day of the fields; any 16-bit values are taken. As walking month by month would have it, a month before
/// the first adds no days and a month after the last those of the whole year; days are just added.
constexpr std::int32_t FromFields(int day, int month, int year) noexcept {
    if (static_cast<unsigned>(month) - 1U > 11U) {  // one test for the rare case of both sides
        year += month > 12 ? 1 : 0;
        month = 1;
    }
    const bool isBeforeMarch = month < 3;
    const std::uint32_t y = static_cast<std::uint32_t>(year) + kYearShift - (isBeforeMarch ? 1U : 0U);
    const std::uint32_t m = static_cast<std::uint32_t>(month) + (isBeforeMarch ? 12U : 0U);
    const std::uint32_t century = y / 100;
    const std::uint32_t daysToYear = 1461 * y / 4 - century + century / 4;
    const std::uint32_t daysToMonth = (979 * m - 2919) / 32;
    return static_cast<std::int32_t>(daysToYear + daysToMonth - kDayShift) + day - 1;
}

/// The date of a serial day that FromFields() gives for a year of 16 bits.
constexpr FIELDS ToFields(std::int32_t serial) noexcept {
    const std::uint32_t n1 = 4 * (static_cast<std::uint32_t>(serial) + kDayShift) + 3;
    const std::uint32_t century = n1 / 146097;
    const std::uint32_t n2 = n1 % 146097 | 3;  // four times the day of the century, plus 3
    const std::uint64_t p2 = std::uint64_t{2939745} * n2;
    const auto yearOfCentury = static_cast<std::uint32_t>(p2 >> 32);
    const std::uint32_t dayOfYear = static_cast<std::uint32_t>(p2) / 2939745 / 4;
    const std::uint32_t n3 = 2141 * dayOfYear + 197913;
    const bool isNextYear = dayOfYear >= 306;  // January and February end the shifted year
    const std::uint32_t year = 100 * century + yearOfCentury - kYearShift + (isNextYear ? 1U : 0U);
    const std::uint32_t month = (n3 >> 16) - (isNextYear ? 12U : 0U);
    const std::uint32_t day = (n3 & 0xFFFFU) / 2141 + 1;
    return {static_cast<std::int32_t>(year), static_cast<int>(month), static_cast<int>(day)};
}

/// 1 January 1970, where the clocks of systems start.
inline constexpr std::int32_t kUnixEpoch = FromFields(1, 1, 1970);

/// The first and the last day whose year fits 16 bits.
inline constexpr std::int32_t kFirst = FromFields(1, 1, -32768);
inline constexpr std::int32_t kLast = FromFields(31, 12, 32767);

/// The day of the week, 0 = Monday to 6 = Sunday, for days before 1904 too.
constexpr int Weekday(std::int32_t serial) noexcept {
    const int signedWeekday = (serial - 3) % 7;
    return signedWeekday < 0 ? signedWeekday + 7 : signedWeekday;
}

static_assert(FromFields(1, 1, 1904) == 0 && FromFields(1, 3, 1904) == 60 && FromFields(31, 12, 1903) == -1);
static_assert(FromFields(1, 1, 2000) == 35064 && ToFields(35064).year == 2000 && ToFields(-1).day == 31);

}  // namespace MLCore::serialday
