/// The calendar as the tests know it: walked day by day, and Easter by another algorithm than the library's.
#pragma once

#include <MLCore/datetime/CCALENDARBANQUEPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>

#include <cstdint>
#include <set>
#include <utility>

namespace support {

constexpr bool IsLeap(int year) { return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0); }

constexpr int MonthLength(int month, int year) {
    constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month < 1 || month > 12 ? 0 : month == 2 && IsLeap(year) ? 29 : kLengths[month - 1];
}

inline MLCore::CDATE Date(int day, int month, int year) {
    return {static_cast<std::int16_t>(day), static_cast<std::int16_t>(month), static_cast<std::int16_t>(year)};
}

/// A day on a walk from 1 January of the year 0, which is a Saturday, 695421 days before 1 January 1904.
struct DAY {
    std::int32_t serial = -695421;
    int year = 0;
    int month = 1;
    int day = 1;
    int dayOfYear = 1;
    int weekday = 5;  // 0 = Monday

    void Advance() {
        ++serial;
        ++dayOfYear;
        weekday = weekday == 6 ? 0 : weekday + 1;
        if (++day > MonthLength(month, year)) {
            day = 1;
            if (++month > 12) {
                month = 1;
                dayOfYear = 1;
                ++year;
            }
        }
    }
    [[nodiscard]] MLCore::CDATE Date() const { return support::Date(day, month, year); }
};

/// Easter Sunday as a day of March (32 is 1 April), by the rule of C. F. Gauss with both of its exceptions, for years
/// of the Gregorian calendar from 0.
constexpr int EasterInMarch(int year) {
    const int century = year / 100;
    const int moon = ((15 + century - century / 4 - (13 + 8 * century) / 25) % 30 + 30) % 30;
    const int sunday = (4 + century - century / 4) % 7;
    const int d = (19 * (year % 19) + moon) % 30;
    const int e = (2 * (year % 4) + 4 * (year % 7) + 6 * d + sunday) % 7;
    const bool isLate = e == 6 && (d == 29 || (d == 28 && (11 * moon + 11) % 30 < 19));
    return 22 + d + e - (isLate ? 7 : 0);
}

/// The days of a month that are always holidays, and the days from Easter Sunday that are.
struct HOLIDAYS {
    std::set<std::pair<int, int>> fixed;
    std::set<int> fromEaster;

    [[nodiscard]] bool Has(const DAY& day) const {
        const int easter = EasterInMarch(day.year) + (IsLeap(day.year) ? 60 : 59);
        return fixed.count({day.day, day.month}) != 0 || fromEaster.count(day.dayOfYear - easter) != 0;
    }
};

inline const HOLIDAYS kFrench = {{{1, 1}, {1, 5}, {8, 5}, {14, 7}, {15, 8}, {1, 11}, {11, 11}, {25, 12}}, {1, 39, 50}};
inline const HOLIDAYS kFrenchBank = {{{1, 1}, {1, 5}, {8, 5}, {14, 7}, {15, 8}, {1, 11}, {11, 11}, {25, 12}, {26, 12}},
                                     {-2, 1, 39, 50}};
inline const HOLIDAYS kPortuguese = {
    {{1, 1}, {25, 4}, {1, 5}, {10, 6}, {15, 8}, {5, 10}, {1, 11}, {1, 12}, {8, 12}, {25, 12}}, {-47, -2, 1, 60}};
inline const HOLIDAYS* const kOwnHolidays[] = {&kFrench, &kFrenchBank, &kPortuguese, &kPortuguese};

using CALENDAR = MLCore::CSHAREOBJECTPTR<MLCore::CCALENDARSTRATEGY>;

/// The library's own calendars, in the order of kOwnHolidays.
inline CALENDAR OwnCalendar(int kind) {
    using namespace MLCore;
    const CALENDAR own[] = {CCALENDARFRENCHSTRATEGY::Create(), CCALENDARBANQUESTRATEGY::Create(),
                            CCALENDARPORTOSTRATEGY::Create(), CCALENDARBANQUEPORTOSTRATEGY::Create()};
    return own[kind];
}

}  // namespace support
