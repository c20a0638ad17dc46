#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace MLCore {

namespace {

// Writes a number into a buffer of kDoubleTextSize characters; returns its end.
template <class NUMBER>
char* Write(char* buffer, NUMBER value) noexcept {
    char* const end = buffer + kDoubleTextSize;
    if (std::isnan(value)) {  // of either sign
        return std::copy_n("nan", 3, buffer);
    }
    // Below it the exact digits are not more than those that distinguish the number from its neighbours.
    constexpr bool kIsDouble = sizeof(NUMBER) == sizeof(double);
    constexpr auto kLarge = static_cast<NUMBER>(kIsDouble ? 1e17 : 1e9);
    const NUMBER magnitude = std::abs(value);
    const bool isPlain = magnitude == 0 || (magnitude >= static_cast<NUMBER>(1e-5) && magnitude < kLarge);
    return std::to_chars(buffer, end, value, isPlain ? std::chars_format::fixed : std::chars_format::scientific).ptr;
}

template <class NUMBER>
void Append(std::string& text, NUMBER value) {
    char buffer[kDoubleTextSize];
    text.append(buffer, Write(buffer, value));
}

// True when the digits before any exponent are not all zero.
bool HasDigit(std::string_view text) noexcept {
    const std::string_view mantissa = text.substr(0, text.find_first_of("eE"));
    return mantissa.find_first_of("123456789") != std::string_view::npos;
}

}  // namespace

int lftoa(double value, char* buffer, unsigned size) noexcept {
    if (buffer == nullptr || size == 0) {
        return 0;
    }
    char text[kDoubleTextSize];
    const auto length = static_cast<std::size_t>(Write(text, value) - text);
    const std::size_t kept = length < size ? length : 0;
    std::memcpy(buffer, text, kept);
    buffer[kept] = 0;
    return static_cast<int>(kept);
}

void AppendDouble(std::string& text, double value) { Append(text, value); }

void AppendFloat(std::string& text, float value) { Append(text, value); }

int ParseDouble(std::string_view text, double& value) noexcept {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    double magnitude = 0;
    if (text == "inf") {
        magnitude = std::numeric_limits<double>::infinity();
    } else if (text == "nan") {
        magnitude = std::numeric_limits<double>::quiet_NaN();
    } else {
        const char* const end = text.data() + text.size();
        const bool isNumber = !text.empty() && (text[0] == '.' || (text[0] >= '0' && text[0] <= '9'));
        if (!isNumber) {
            return 0;
        }
        const auto [stop, error] = std::from_chars(text.data(), end, magnitude);
        // A number that does not fit is an error or, with some libraries, a zero or an infinity.
        if (error != std::errc() || stop != end || std::isinf(magnitude) || (magnitude == 0 && HasDigit(text))) {
            return 0;
        }
    }
    value = isNegative ? -magnitude : magnitude;
    return 1;
}

}  // namespace MLCore
