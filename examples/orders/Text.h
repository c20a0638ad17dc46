/// Text for people to read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orders {

/// A text of code page 1252 in UTF-8, with blanks for the control characters that could upset a terminal or a table.
[[nodiscard]] std::string ToReadable(std::string text);

/// The same between quotation marks; a long one is cut.
[[nodiscard]] std::string Quoted(const std::string& text);

/// "-1,234.5600" of "-1234.5600"
[[nodiscard]] std::string GroupThousands(std::string number);
[[nodiscard]] std::string GroupThousands(long long number);

/// The number of characters of a UTF-8 text.
[[nodiscard]] std::size_t CountCharacters(std::string_view utf8) noexcept;

}  // namespace orders
