/// Case, accents and comparison of zero-terminated texts in Windows code page 1252, whatever the locale of the process.
///
/// All from one table of the 256 characters (AnsiCharacters.h), the same on every system; only CompareNoCaseLocale() asks
/// the system.
#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/text/AnsiCharacters.h>

namespace MLCore {

/// The capital of a small letter, accented ones included; every other character itself, as ß, which has no capital.
[[nodiscard]] constexpr char UpperAnsi(char character) noexcept {
    return static_cast<char>(AnsiCharacterOf(character).upper);
}

/// The letter without its accent, cedilla or tilde, in its own case. Æ, Œ, Ø, Ð, Þ and ß are letters of their own and stay.
[[nodiscard]] constexpr char WithoutAccent(char character) noexcept {
    return static_cast<char>(AnsiCharacterOf(character).base);
}

/// Replaces every character by its UpperAnsi(). In place; returns `text`, which may be null.
MLCORE_API char* lstrupr(char* text) noexcept;

/// Replaces every character by its WithoutAccent(). In place; returns `text`, which may be null.
MLCORE_API char* lstrrmvaccent(char* text) noexcept;

/// Compares without regard to accents and to the case of A to Z, then by the codes of the characters: 0, -1 when `left`
/// comes first, or 1. Null is "".
[[nodiscard]] MLCORE_API short lstrcmpinolocal(const char* left, const char* right) noexcept;

/// Compares by the system's rules for its user, without regard to case: 0, -1 when `left` comes first, or 1. Null is "".
/// Where the system has no such rules for the code page, as on Linux, this is CompareNoCaseByTable().
[[nodiscard]] MLCORE_API short CompareNoCaseLocale(const char* left, const char* right) noexcept;

/// Compares in the order of a dictionary, without regard to case: 0, -1 when `left` comes first, or 1. Null is "".
///
/// Symbols come before digits, digits before letters. Accents count only between texts that are otherwise equal:
/// "cote" < "cot\xE9" < "coter". ß is "ss", œ "oe" and æ "ae". Linear in the length; takes no memory.
[[nodiscard]] MLCORE_API short CompareNoCaseByTable(const char* left, const char* right) noexcept;

}  // namespace MLCore
