#include "Amount.h"

#include <MLCore/text/DecimalText.h>

#include <cstddef>
#include <limits>
#include <stdexcept>

namespace orders {

namespace {

constexpr int kDecimals = 4;
constexpr std::uint64_t kScale = 10000;
constexpr std::size_t kMostDigits = 12;

bool IsNumber(std::string_view text, std::size_t mostDigits) noexcept {
    return !text.empty() && text.size() <= mostDigits && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::int64_t AppendDigits(std::int64_t number, std::string_view digits) noexcept {
    for (const char digit : digits) {
        number = number * 10 + (digit - '0');
    }
    return number;
}

}  // namespace

bool AMOUNT::FromText(std::string_view text) noexcept {
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative ? 1 : 0);
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view decimals = point != std::string_view::npos ? text.substr(point + 1) : "0";
    if (!IsNumber(whole, kMostDigits) || !IsNumber(decimals, kDecimals)) {
        return false;
    }
    const std::string_view zeros = std::string_view("0000").substr(decimals.size());
    const std::int64_t magnitude = AppendDigits(AppendDigits(AppendDigits(0, whole), decimals), zeros);
    mTenThousandths = isNegative ? -magnitude : magnitude;
    return true;
}

std::string AMOUNT::ToText() const {
    const auto magnitude = static_cast<std::uint64_t>(mTenThousandths < 0 ? -mTenThousandths : mTenThousandths);
    std::string text = mTenThousandths < 0 ? "-" : "";
    text += GroupThousands(magnitude / kScale) + '.';
    MLCore::AppendPadded(text, static_cast<long long>(magnitude % kScale), kDecimals);
    return text;
}

AMOUNT& AMOUNT::operator+=(const AMOUNT& other) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    const std::int64_t added = other.mTenThousandths;
    if (added > 0 ? mTenThousandths > kMost - added : mTenThousandths < -kMost - added) {
        throw std::overflow_error("a total is too large");
    }
    mTenThousandths += added;
    return *this;
}

std::string GroupThousands(std::uint64_t number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3; place -= 3) {
        text.insert(place - 3, 1, ',');
    }
    return text;
}

}  // namespace orders
