/// Floating-point numbers in text, written and read the same in every locale.
///
/// The text is the shortest decimal one that reads back as the same number, with "." before the fraction. Magnitudes from 1e-5 up
/// to, not including, 1e17 (1e9 for a float) stand in full: "100000", "0.1", "-2.5"; others have an exponent: "1e+22", "1.5e-07".
/// Zeros are "0" and "-0", the rest is "inf", "-inf" and "nan".
#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <string_view>

namespace MLCore {

/// A buffer of so many characters holds every text of a double and the zero behind it.
inline constexpr unsigned kDoubleTextSize = 25;

/// Writes the text of `value` and a zero into `buffer`, which has room for `size` characters.
///
/// \return the length without the zero; 0 when the text does not fit: then it is "" (nothing is written when `size` is 0 or
///         `buffer` is null).
MLCORE_API int lftoa(double value, char* buffer, unsigned size) noexcept;

MLCORE_API void AppendDouble(std::string& text, double value);
MLCORE_API void AppendFloat(std::string& text, float value);  ///< the shortest that reads back as the same float

/// Reads a number that must be all of `text`: an optional sign, then "inf", "nan", or digits with or without a "." among or
/// around them and an exponent ("e" or "E", optional sign, digits). No blanks. The nearest double is taken.
///
/// \return 1 when read; 0, with `value` unchanged, for any other text, and for a number too large for a double or so small
///         that it would become zero.
[[nodiscard]] MLCORE_API int ParseDouble(std::string_view text, double& value) noexcept;

}  // namespace MLCore
