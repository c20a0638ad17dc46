/// \file
/// Case, accents and comparison of zero-terminated texts in Windows code page 1252, whatever the locale of the process.
///
/// All rules come from one table (AnsiCharacters.h) and are the same on every system. Only CompareNoCaseLocale() asks
/// the system first.
#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/text/detail/AnsiCharacters.h>

namespace MLCore {

/// The capital of a small letter, with its accent; any other character unchanged. ß has no capital.
[[nodiscard]] inline char UpperAnsi(char character) noexcept {
    return static_cast<char>(AnsiCharacterOf(character).upper);
}

/// A letter without accent, tilde or cedilla, in its own case; any other character unchanged. Æ, Œ, Ø, Ð, Þ and ß stay:
/// they are separate letters.
[[nodiscard]] inline char WithoutAccent(char character) noexcept {
    return static_cast<char>(AnsiCharacterOf(character).base);
}

/// WithoutAccent(), and then the capital of a to z. lstrcmpinolocal() compares these.
[[nodiscard]] char WithoutAccentOrCase(char character) noexcept;

/// Replaces every character by its UpperAnsi(), in place; returns `text`, which may be null.
MLCORE_API char* lstrupr(char* text) noexcept;

/// Replaces every character by its WithoutAccent(), in place; returns `text`, which may be null.
MLCORE_API char* lstrrmvaccent(char* text) noexcept;

/// Compares WithoutAccentOrCase(), by the codes of the characters: -1 when `left` comes first, 0 or 1. Null is "".
[[nodiscard]] MLCORE_API short lstrcmpinolocal(const char* left, const char* right) noexcept;

/// Compares by the system's rules for the user's language, without case: -1 when `left` comes first, 0 or 1. Null is
/// "". A system without such rules for the code page, such as Linux, uses CompareNoCaseByTable().
[[nodiscard]] MLCORE_API short CompareNoCaseLocale(const char* left, const char* right) noexcept;

/// Compares as a dictionary does, without case: -1 when `left` comes first, 0 or 1. Null is "". Takes no memory.
///
/// Symbols come before digits, digits before letters. Accents count only if everything else is equal: "cote" < "coté" <
/// "coter". ß equals "ss", œ "oe", æ "ae" and þ "th". The rule of Windows for English and French differs in one point:
/// it ignores hyphens and apostrophes at first.
[[nodiscard]] MLCORE_API short CompareNoCaseByTable(const char* left, const char* right) noexcept;

/// Compares as CompareNoCaseByTable() does, with each run of digits as one number of any length: "Facture 2" < "Facture
/// 10". Numbers have the place of digits, between symbols and letters, and before fractions and superscripts. If
/// everything else is equal, the first difference in accents or in leading zeros decides, fewer zeros first: "7" < "07"
/// < "7a". Texts are equal when CompareNoCaseByTable() says so. A sign, a decimal point and a comma are symbols: "1.5"
/// < "1.10". Takes no memory.
[[nodiscard]] MLCORE_API short CompareNaturally(const char* left, const char* right) noexcept;

inline char WithoutAccentOrCase(char character) noexcept {
    const char base = WithoutAccent(character);
    return base >= 'a' && base <= 'z' ? UpperAnsi(base) : base;
}

}  // namespace MLCore
