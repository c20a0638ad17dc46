/// \file
/// Floating-point numbers in text, written and read the same in every locale.
///
/// The text is the shortest decimal one that reads back as the same number, with "." before the fraction. Magnitudes
/// from 1e-5 to below 1e17 (1e9 for a float) are written in full: "100000", "0.1", "-2.5". Others have an exponent:
/// "1e+22", "1.5e-07". Zeros are "0" and "-0". Numbers that are not finite are "inf", "-inf" and "nan".
#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <string_view>

namespace MLCore {

/// A buffer of this many characters holds every text of a double and the zero after it.
inline constexpr unsigned kDoubleTextSize = 25;

/// Writes the text of `value` and a zero into `buffer`, which has room for `size` characters.
///
/// \return the length without the zero; 0 when the text does not fit: then it is "" (nothing is written when `size` is
///         0 or `buffer` is null).
MLCORE_API int lftoa(double value, char* buffer, unsigned size) noexcept;

MLCORE_API void AppendDouble(std::string& text, double value);
MLCORE_API void AppendFloat(std::string& text, float value);  ///< the shortest that reads back as the same float

/// Reads a number that must be the whole of `text`: an optional sign, then "inf", "nan", or digits. Digits may have one
/// ".", before, among or after them, and an exponent ("e" or "E", an optional sign, digits). Blanks are not allowed.
/// The result is the nearest double.
///
/// \return 1 when read; 0, with `value` unchanged, for any other text, and for a number that is too large for a double,
///         or so small that it would become zero.
[[nodiscard]] MLCORE_API int ParseDouble(std::string_view text, double& value) noexcept;

}  // namespace MLCore
