/// The characters of Windows code page 1252 in Unicode, one by one. MLCore/text/CodePage1252.h converts whole texts.
///
/// They follow the Unicode Consortium's best-fit table of the code page, in which the five unassigned bytes stand for
/// the control characters with the same numbers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace MLCore::platform {

// The bytes 0x80..0x9F; every other byte is its own code point.
inline constexpr char16_t kAnsiSpecials[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(std::size(kAnsiSpecials) == 32);

/// The code point of a byte.
[[nodiscard]] constexpr char16_t CodePointOf(char ansi) noexcept {
    const auto byte = static_cast<std::uint8_t>(ansi);
    return byte >= 0x80 && byte <= 0x9F ? kAnsiSpecials[byte - 0x80] : byte;
}

/// The byte of a character, 0..255; -1 when the code page lacks it.
[[nodiscard]] constexpr int AnsiOf(char32_t character) noexcept {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<int>(character);
    }
    const auto* const found = std::find(std::begin(kAnsiSpecials), std::end(kAnsiSpecials), character);
    return found != std::end(kAnsiSpecials) ? static_cast<int>(0x80 + (found - kAnsiSpecials)) : -1;
}

}  // namespace MLCore::platform
