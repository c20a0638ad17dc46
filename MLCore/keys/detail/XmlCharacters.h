/// The characters of key streams in XML.
#pragma once

#include <string>
#include <string_view>

namespace MLCore {

/// Whether `name` is made of ASCII letters, digits, '_', '-' and '.', and begins with a letter or '_': a subset of what
/// XML allows.
[[nodiscard]] bool IsXmlName(std::string_view name) noexcept;
[[nodiscard]] bool IsXmlNameCharacter(char character) noexcept;
/// Whether XML 1.0 can hold the text: no control characters but tab, LF and CR.
[[nodiscard]] bool IsXmlText(std::string_view text) noexcept;
/// Appends the text as an attribute or as text holds it: markup, and what a parser would normalise, as references.
void AppendXmlText(std::string& out, std::string_view text);
/// Sets the character, in code page 1252, that a reference stands for: "amp", "#233", "#xE9", without its '&' and ';'.
/// False when the reference is unknown, or the code page lacks the character.
[[nodiscard]] bool ReadXmlReference(std::string_view reference, char& character) noexcept;

}  // namespace MLCore
