#include "Text.h"

#include <MLCore/text/CodePage1252.h>

#include <algorithm>

namespace orders {

std::string ToReadable(std::string text) {
    // Those above 0x7F are the bytes that the code page leaves without a character.
    constexpr std::string_view kUnassigned = "\x7F\x81\x8D\x8F\x90\x9D";
    const auto isControl = [kUnassigned](char character) {
        return static_cast<unsigned char>(character) < 0x20 || kUnassigned.find(character) != std::string_view::npos;
    };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return MLCore::Utf8FromAnsi(text);
}

std::string Quoted(const std::string& text) {
    constexpr std::size_t kMostShown = 40;
    return '"' + ToReadable(text.substr(0, kMostShown)) + (text.size() > kMostShown ? "..." : "") + '"';
}

std::string GroupThousands(std::string number) {
    const std::size_t first = number.starts_with('-') ? 1 : 0;
    for (std::size_t place = std::min(number.find('.'), number.size()); place > first + 3;) {
        place -= 3;
        number.insert(place, 1, ',');
    }
    return number;
}

std::string GroupThousands(long long number) { return GroupThousands(std::to_string(number)); }

std::size_t CountCharacters(std::string_view utf8) noexcept {
    const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), begins));
}

}  // namespace orders
