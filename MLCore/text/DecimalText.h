/// \file
/// Decimal numbers in text, read and written the same in every locale.
#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <string_view>

namespace MLCore {

/// 1 when every character is a decimal digit; 1 for the empty text too.
[[nodiscard]] MLCORE_API int IsDigits(std::string_view text) noexcept;

/// The integer at the beginning of `text`: blanks, a sign and digits, each of them optional. The rest is ignored.
/// Without digits the result is 0. It works like the C library's atoi(), except that a number beyond `int` gives the
/// nearest int.
[[nodiscard]] MLCORE_API int LeadingInteger(std::string_view text) noexcept;

/// Reads an optional sign and decimal digits, which must be the whole of `text`.
///
/// \return 1 when read; 0, with `value` unchanged, for any other text and for a number beyond `long long`.
[[nodiscard]] MLCORE_API int ParseInteger(std::string_view text, long long& value) noexcept;

/// Appends `value` with at least `digits` digits, with zeros after the sign if it has fewer. It works like "%.*lld" of
/// printf, except that 0 always has a digit.
MLCORE_API void AppendPadded(std::string& text, long long value, int digits);

}  // namespace MLCore
