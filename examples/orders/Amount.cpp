#include "Amount.h"

#include <MLCore/text/DecimalText.h>

#include <cstddef>
#include <cstdlib>
#include <stdexcept>

namespace orders {

namespace {

constexpr int kDecimals = 4;
constexpr std::int64_t kScale = 10'000;
constexpr std::size_t kMostDigits = 14;
constexpr std::int64_t kBeyond = kScale * 100'000'000'000'000;

bool IsNumber(std::string_view text, std::size_t mostDigits) noexcept {
    return !text.empty() && text.size() <= mostDigits && MLCore::IsDigits(text) != 0;
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
    const std::int64_t magnitude = std::abs(mTenThousandths);
    std::string text = mTenThousandths < 0 ? "-" : "";
    text += std::to_string(magnitude / kScale) + '.';
    MLCore::AppendPadded(text, magnitude % kScale, kDecimals);
    return text;
}

AMOUNT& AMOUNT::operator+=(const AMOUNT& other) {
    const std::int64_t sum = mTenThousandths + other.mTenThousandths;
    if (std::abs(sum) >= kBeyond) {
        throw std::overflow_error("a total of amounts is too large");
    }
    mTenThousandths = sum;
    return *this;
}

}  // namespace orders
