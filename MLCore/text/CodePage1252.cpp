#include <MLCore/text/CodePage1252.h>

#include <MLCore/platform/AnsiCodePoints.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace MLCore {

namespace {

// The leading bytes of the well-formed sequences of two and more bytes, with the range of the byte after them; all
// further ones are 80..BF (The Unicode Standard, table 3-7).
struct LEAD {
    std::uint8_t first;
    std::uint8_t last;
    std::uint8_t length;
    std::uint8_t secondFirst;
    std::uint8_t secondLast;
};
constexpr LEAD kLeads[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

constexpr char32_t kMalformed = 0xFFFFFFFF;

struct DECODED {
    char32_t character;
    std::size_t length;
};

// The character at the front of a text that is not empty, or kMalformed with the length of what could have begun one.
DECODED Decode(std::string_view utf8) noexcept {
    const auto byteAt = [utf8](std::size_t index) { return static_cast<std::uint8_t>(utf8[index]); };
    const std::uint8_t first = byteAt(0);
    if (first < 0x80) {
        return {first, 1};
    }
    const auto* const lead = std::find_if(std::begin(kLeads), std::end(kLeads),
                                          [first](const LEAD& row) { return first >= row.first && first <= row.last; });
    if (lead == std::end(kLeads)) {
        return {kMalformed, 1};
    }
    char32_t character = first & (0x7FU >> lead->length);
    std::uint8_t lowest = lead->secondFirst;
    std::uint8_t highest = lead->secondLast;
    for (std::size_t i = 1; i < lead->length; ++i) {
        if (i >= utf8.size() || byteAt(i) < lowest || byteAt(i) > highest) {
            return {kMalformed, i};
        }
        character = character << 6 | (byteAt(i) & 0x3FU);
        lowest = 0x80;
        highest = 0xBF;
    }
    return {character, lead->length};
}

// The characters of the code page need three bytes at most.
void AppendUtf8(std::string& utf8, char16_t character) {
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
    } else if (character < 0x800) {
        utf8 += static_cast<char>(0xC0 | character >> 6);
        utf8 += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        utf8 += static_cast<char>(0xE0 | character >> 12);
        utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
}

}  // namespace

int AnsiFromCodePoint(char32_t character) noexcept { return platform::AnsiOf(character); }

std::string Utf8FromAnsi(std::string_view ansi, int* lossy) {
    std::string utf8;
    utf8.reserve(ansi.size());
    for (const char character : ansi) {
        AppendUtf8(utf8, platform::CodePointOf(character));
    }
    if (lossy != nullptr) {
        *lossy = 0;
    }
    return utf8;
}

std::string AnsiFromUtf8(std::string_view utf8, int* lossy) {
    std::string ansi;
    ansi.reserve(utf8.size());
    std::size_t replaced = 0;
    while (!utf8.empty()) {
        const DECODED decoded = Decode(utf8);
        const int byte = AnsiFromCodePoint(decoded.character);
        replaced += byte < 0 ? 1 : 0;
        ansi += byte < 0 ? '?' : static_cast<char>(byte);
        utf8.remove_prefix(decoded.length);
    }
    if (lossy != nullptr) {
        constexpr std::size_t kMost = std::numeric_limits<int>::max();
        *lossy = static_cast<int>(std::min(replaced, kMost));
    }
    return ansi;
}

}  // namespace MLCore
