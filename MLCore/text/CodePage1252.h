/// \file
/// Conversion of text between UTF-8 and Windows code page 1252, in which the library keeps all its texts.
///
///     int lost = 0;
///     const std::string name = AnsiFromUtf8(fromTheNetwork, &lost);
///     if (lost > 0) ...                                // the number of characters that became '?'
///     std::cout << Utf8FromAnsi(name);                 // never loses anything
///
/// Every byte stands for one character, so a text that is converted to UTF-8 and back is unchanged. That includes the
/// bytes 81, 8D, 8F, 90 and 9D, which the code page leaves undefined: they stand for the control characters U+0081,
/// U+008D, U+008F, U+0090 and U+009D, as they do on Windows. A zero byte is a character like any other.
#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <string_view>

namespace MLCore {

/// The text in UTF-8. Nothing can be lost; `lossy` (may be null) receives 0. Linear in the length.
[[nodiscard]] MLCORE_API std::string Utf8FromAnsi(std::string_view ansi, int* lossy = nullptr);

/// The text in code page 1252. A character that the code page lacks becomes one '?'. It never becomes a similar
/// character: "ā" does not become "a". U+0080 is lacking, because its byte is the euro sign. Malformed UTF-8 is read
/// strictly and becomes one '?' for each longest part that could have begun a character, as the Unicode Standard
/// recommends (section 3.9). `lossy` (may be null) receives the number of these replacements. Linear in the length.
[[nodiscard]] MLCORE_API std::string AnsiFromUtf8(std::string_view utf8, int* lossy = nullptr);

/// The byte of a Unicode character, 0..255; -1 when the code page lacks it.
[[nodiscard]] MLCORE_API int AnsiFromCodePoint(char32_t character) noexcept;

}  // namespace MLCore
