#include <MLCore/text/detail/AnsiCharacters.h>

#include <string_view>

namespace MLCore {

namespace {

using TABLE = std::array<ANSICHARACTER, 256>;

// The place that the first character of kOrder takes: the control characters stand before it, by their codes.
constexpr int kFirstPlace = 0x20;

// Symbols, digits, letters, as Windows sorts them.
constexpr std::string_view kOrder =
    "'-\x96\x97 \xA0\t\n\v\f\r!\"#$%&()*,./:;?@[\\]^\x88_`{|}~\xA1\xA6\xA8\xAF\xB4\xB8\xBF\x98\x91\x92\x82\x93\x94\x84"
    "\x8B\x9B\xA2\xA3\xA4\xA5\x80+<=>"
    "\xB1\xAB\xBB\xD7\xF7\xA7\xA9\xAC\xAE\xB0\xB5\xB6\xB7\x85\x86\x87\x95\x89\x99\x81\x8D"
    "\x8F\x90\x9D"
    "0\xBC\xBD\xBE"
    "123456789"
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// A digit or capital, then the characters that share its place, in their order at that place.
constexpr std::string_view kFamilies[] = {"1\xB9",
                                          "2\xB2",
                                          "3\xB3",
                                          "A\xAA\xC1\xC0\xC2\xC4\xC3\xC5",
                                          "C\xC7",
                                          "D\xD0",
                                          "E\xC9\xC8\xCA\xCB",
                                          "F\x83",
                                          "I\xCD\xCC\xCE\xCF",
                                          "N\xD1",
                                          "O\xBA\xD3\xD2\xD4\xD6\xD5\xD8",
                                          "S\x8A",
                                          "U\xDA\xD9\xDB\xDC",
                                          "Y\xDD\x9F",
                                          "Z\x8E"};

// Those of them that do not consist of the first one and an accent.
constexpr std::string_view kNotAccented = "\xB9\xB2\xB3\xAA\xD0\x83\xBA\xD8";

// One letter that stands for two.
constexpr struct {
    char letter;
    char first;
    char second;
} kDoubles[] = {{'\xC6', 'A', 'E'}, {'\x8C', 'O', 'E'}, {'\xDF', 'S', 'S'}, {'\xDE', 'T', 'H'}};

constexpr ANSICHARACTER& At(TABLE& table, char character) { return table[static_cast<std::uint8_t>(character)]; }

constexpr void Pair(TABLE& table, unsigned upper, unsigned lower) {
    table[lower].upper = static_cast<std::uint8_t>(upper);
    table[upper].lower = static_cast<std::uint8_t>(lower);
}

constexpr void SetCase(TABLE& table) {
    std::uint8_t code = 0;
    for (ANSICHARACTER& character : table) {
        character = {code, code, code, 0, 0, 0};
        ++code;
    }
    for (unsigned letter = 'A'; letter <= 'Z'; ++letter) {
        Pair(table, letter, letter + 0x20);
    }
    for (unsigned letter = 0xC0; letter <= 0xDE; ++letter) {
        if (letter != 0xD7) {  // the multiplication sign, whose place among the small ones is the division sign's
            Pair(table, letter, letter + 0x20);
        }
    }
    for (const unsigned letter : {0x8AU, 0x8CU, 0x8EU}) {
        Pair(table, letter, letter + 0x10);
    }
    Pair(table, 0x9F, 0xFF);
}

constexpr void SetFamilies(TABLE& table) {
    for (const std::string_view family : kFamilies) {
        const ANSICHARACTER& first = At(table, family[0]);
        for (std::uint8_t i = 1; i < family.size(); ++i) {
            ANSICHARACTER& member = At(table, family[i]);
            member.order = first.order;
            member.accent = i;
            if (kNotAccented.find(family[i]) == std::string_view::npos) {
                member.base = first.base;
                table[member.lower].base = first.lower;
            }
        }
    }
}

constexpr void SetOrder(TABLE& table) {
    int place = kFirstPlace;
    for (const char character : kOrder) {
        At(table, character).order = static_cast<std::uint8_t>(place++);
    }
    SetFamilies(table);
    for (const auto& row : kDoubles) {
        At(table, row.letter).order = At(table, row.first).order;
        At(table, row.letter).second = At(table, row.second).order;
    }
    std::uint8_t control = 0;
    for (ANSICHARACTER& character : table) {
        const ANSICHARACTER& capital = table[character.upper];
        character.order = capital.order != 0 ? capital.order : control++;
        character.accent = capital.accent;
        character.second = capital.second;
    }
}

constexpr TABLE MakeTable() {
    TABLE table{};
    SetCase(table);
    SetOrder(table);
    return table;
}

}  // namespace

constinit const TABLE kAnsiCharacters = MakeTable();

}  // namespace MLCore
