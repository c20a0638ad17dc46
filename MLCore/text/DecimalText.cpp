#include <MLCore/text/DecimalText.h>

#include <MLCore/text/Blanks.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace MLCore {

namespace {

bool IsDigit(char character) noexcept { return character >= '0' && character <= '9'; }

}  // namespace

int IsDigits(std::string_view text) noexcept { return std::all_of(text.begin(), text.end(), IsDigit) ? 1 : 0; }

int LeadingInteger(std::string_view text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    constexpr long long kLimit = std::numeric_limits<int>::max();
    long long magnitude = 0;
    for (auto digit = text.begin(); digit != text.end() && IsDigit(*digit) && magnitude <= kLimit; ++digit) {
        magnitude = magnitude * 10 + (*digit - '0');
    }
    return static_cast<int>(isNegative ? std::max(-magnitude, -kLimit - 1) : std::min(magnitude, kLimit));
}

int ParseInteger(std::string_view text, long long& value) noexcept {
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) {
        return 0;
    }
    value = number;
    return 1;
}

void AppendPadded(std::string& text, long long value, int digits) {
    char buffer[std::numeric_limits<unsigned long long>::digits10 + 1];
    // Negated as unsigned: the smallest value has no positive counterpart.
    const auto magnitude =
        value < 0 ? 0ULL - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
    const char* const end = std::to_chars(buffer, buffer + sizeof buffer, magnitude).ptr;
    const auto length = static_cast<int>(end - buffer);
    if (value < 0) {
        text += '-';
    }
    text.append(static_cast<std::size_t>(digits > length ? digits - length : 0), '0');
    text.append(buffer, static_cast<std::size_t>(length));
}

}  // namespace MLCore
