/// Amounts of money in exact decimal arithmetic: 0.1 + 0.2 is 0.3.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orders {

/// Counts ten-thousandths, the finest amount in an order line.
class AMOUNT {
public:
    constexpr AMOUNT() noexcept = default;

    /// Reads "[-]digits[.digits]" with at most 14 digits before the point and 4 after it. Any other text
    /// returns false and leaves the amount unchanged.
    [[nodiscard]] bool FromText(std::string_view text) noexcept;
    /// "-1234.5600", which FromText() reads back.
    [[nodiscard]] std::string ToText() const;

    /// Throws std::overflow_error when the sum has more than 14 digits before the point.
    AMOUNT& operator+=(const AMOUNT& other);

private:
    std::int64_t mTenThousandths = 0;
};

}  // namespace orders
