/// The characters of Windows code page 1252: the table for all rules of case, accents and order.
#pragma once

#include <MLCore/platform/Export.h>

#include <array>
#include <cstdint>

namespace MLCore {

/// The facts about a character. Small letters have the `order`, `accent` and `second` of their capitals.
struct ANSICHARACTER {
    std::uint8_t upper;   ///< the capital of a small letter, else itself
    std::uint8_t lower;   ///< the small letter of a capital, else itself
    std::uint8_t base;    ///< the letter without its accent, in its own case, else itself
    std::uint8_t order;   ///< the place in a dictionary: symbols, digits, letters; 0 only for the character 0
    std::uint8_t accent;  ///< the place among characters of one `order`; 0 for the plain one
    std::uint8_t second;  ///< the `order` of the second letter where one stands for two, as œ does; else 0
};

/// Filled before any code runs.
MLCORE_API extern const std::array<ANSICHARACTER, 256> kAnsiCharacters;

[[nodiscard]] inline const ANSICHARACTER& AnsiCharacterOf(char character) noexcept {
    return kAnsiCharacters[static_cast<std::uint8_t>(character)];
}

}  // namespace MLCore
