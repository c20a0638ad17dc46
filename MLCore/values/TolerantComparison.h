/// \file
/// Compares plain numbers and texts as value objects do: numbers with a tolerance.
///
///     if (Updated(order.amount, amount)) {  // not for a rounding error
///         order.amount = amount;
///     }
#pragma once

#include <concepts>
#include <string>

namespace MLCore {

/// 1 when left - right exceeds 0.00001, -1 when it is below -0.00001, else 0. A NaN gives 0, and so do two infinities
/// of the same sign.
[[nodiscard]] constexpr short DoubleCmp(double left, double right) noexcept {
    constexpr double kTolerance = 0.00001;
    const double difference = left - right;
    return difference > kTolerance ? short{1} : difference < -kTolerance ? short{-1} : short{0};
}

template <class T>
concept PlainComparable = std::same_as<T, double> || std::same_as<T, std::string>;

/// -1, 0 or 1: doubles as DoubleCmp() orders them, texts by their bytes, as unsigned.
template <PlainComparable T>
[[nodiscard]] constexpr short Cmp(const T& left, const T& right) noexcept {
    if constexpr (std::same_as<T, double>) {
        return DoubleCmp(left, right);
    } else {
        const int order = left.compare(right);
        return static_cast<short>((order > 0) - (order < 0));
    }
}

/// True when the two differ: doubles by more than the tolerance.
template <PlainComparable T>
[[nodiscard]] constexpr bool Updated(const T& left, const T& right) noexcept {
    return Cmp<T>(left, right) != 0;
}

}  // namespace MLCore
