/// Easter Sunday, computed with integers alone.
///
///     constexpr EASTERSUNDAY easter = EasterOf(2026);          // day 5 of month 4
///     CDATE date = CCALENDARSTRATEGY::GetPaquesDate(2026);     // the same day as a date
#pragma once

namespace MLCore {

/// The day of the month and the month, 3 (March) or 4 (April), of Easter Sunday.
struct EASTERSUNDAY {
    int day;
    int month;

    friend bool operator==(const EASTERSUNDAY&, const EASTERSUNDAY&) = default;
};

/// Easter Sunday of the year in the Gregorian calendar: 22 March at the earliest, 25 April at the latest.
///
/// This is the anonymous computus that Meeus, Jones and Butcher published (J. Meeus, "Astronomical Algorithms", chapter
/// 8). For the years before 1583, when the Gregorian calendar begins, it gives the day by the same rule. For a year
/// below 0 the result is not always a valid date. No year fails.
[[nodiscard]] constexpr EASTERSUNDAY EasterOf(int year) noexcept;

constexpr EASTERSUNDAY EasterOf(int year) noexcept {
    const int a = year % 19;
    const int c = year / 100;
    const int u = year % 100;
    const int s = c / 4;
    const int e = c - 4 * s;
    const int g = (c - (c + 8) / 25 + 1) / 3;
    const int h = (19 * a + c - s - g + 15) % 30;
    const int i = u / 4;
    const int k = u - 4 * i;
    const int l = (32 + 2 * e + 2 * i - h - k) % 7;
    const int m = (a + 11 * h + 22 * l) / 451;
    const int n = h + l - 7 * m + 114;
    return {n % 31 + 1, n / 31};
}

}  // namespace MLCore
