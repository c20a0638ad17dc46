/// Refuses CDATE(2026, 4, 30), which is day 2026: in constant expressions always, elsewhere where the optimizer sees
/// the numbers.
#pragma once

#include <cstdint>
#include <type_traits>

#if defined(__GNUC__) && defined(__OPTIMIZE__)
#if __has_attribute(error)
#define MLCORE_SEES_YEAR_FIRST
#endif
#endif

namespace MLCore::daymonthyear {

/// Not constexpr: a constant expression that reaches it does not compile, and its name is the message.
inline void DateTakesDayThenMonthThenYear() noexcept {}

#if defined(MLCORE_SEES_YEAR_FIRST)
[[gnu::error("CDATE takes the day first: day, month, year")]] void YearStandsFirst() noexcept;
#endif

/// A constant expression must not have a day above 31 or a month above 12. When the program runs, any fields are
/// allowed; only constants that are plainly a year, a month and a day are refused.
constexpr void Check([[maybe_unused]] std::int16_t day, [[maybe_unused]] std::int16_t month,
                     [[maybe_unused]] std::int16_t year) noexcept {
    if (std::is_constant_evaluated()) {
        if (day > 31 || month > 12) {
            DateTakesDayThenMonthThenYear();
        }
    }
#if defined(MLCORE_SEES_YEAR_FIRST)
    else if (__builtin_constant_p(day) && __builtin_constant_p(month) && __builtin_constant_p(year)) {
        if (day >= 1000 && month >= 1 && month <= 12 && year >= 1 && year <= 31) {
            YearStandsFirst();
        }
    }
#endif
}

}  // namespace MLCore::daymonthyear
