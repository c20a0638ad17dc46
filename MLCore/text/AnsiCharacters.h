/// The characters of Windows code page 1252: the table behind all rules of case, accents and order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace MLCore {

struct ANSICHARACTER {
    std::uint8_t upper;  ///< the capital of a small letter, else itself
    std::uint8_t lower;  ///< the small letter of a capital, else itself
    std::uint8_t base;   ///< the letter without its accent, in its own case, else itself
};

namespace detail {

constexpr std::array<ANSICHARACTER, 256> MakeAnsiCharacters() noexcept {
    std::array<ANSICHARACTER, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto code = static_cast<std::uint8_t>(i);
        table[i] = {code, code, code};
    }
    const auto pair = [&table](unsigned upper, unsigned lower) {
        table[lower].upper = static_cast<std::uint8_t>(upper);
        table[upper].lower = static_cast<std::uint8_t>(lower);
    };
    for (unsigned letter = 'A'; letter <= 'Z'; ++letter) {
        pair(letter, letter + 0x20);
    }
    for (unsigned letter = 0xC0; letter <= 0xDE; ++letter) {
        if (letter != 0xD7) {  // the multiplication sign, above the division sign
            pair(letter, letter + 0x20);
        }
    }
    for (const unsigned letter : {0x8AU, 0x8CU, 0x8EU}) {
        pair(letter, letter + 0x10);
    }
    pair(0x9F, 0xFF);

    constexpr struct {
        unsigned first;  // the capitals of one range
        unsigned last;
        char base;
    } kAccented[] = {{0xC0, 0xC5, 'A'}, {0xC7, 0xC7, 'C'}, {0xC8, 0xCB, 'E'}, {0xCC, 0xCF, 'I'},
                     {0xD1, 0xD1, 'N'}, {0xD2, 0xD6, 'O'}, {0xD9, 0xDC, 'U'}, {0xDD, 0xDD, 'Y'},
                     {0x9F, 0x9F, 'Y'}, {0x8A, 0x8A, 'S'}, {0x8E, 0x8E, 'Z'}};
    for (const auto& row : kAccented) {
        for (unsigned letter = row.first; letter <= row.last; ++letter) {
            const auto base = static_cast<std::uint8_t>(row.base);
            table[letter].base = base;
            table[table[letter].lower].base = table[base].lower;
        }
    }
    return table;
}

}  // namespace detail

inline constexpr std::array<ANSICHARACTER, 256> kAnsiCharacters = detail::MakeAnsiCharacters();

[[nodiscard]] constexpr const ANSICHARACTER& AnsiCharacterOf(char character) noexcept {
    return kAnsiCharacters[static_cast<std::uint8_t>(character)];
}

}  // namespace MLCore
