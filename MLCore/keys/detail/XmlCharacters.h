/// The characters of key streams in XML.
#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>

#include <string>
#include <string_view>

namespace MLCore {

/// Fails with 138 unless the condition holds.
inline void RequireXml(bool condition) {
    if (!condition) {
        FailOSErr(kErrValueType);
    }
}

/// Whether `name` is made of ASCII letters, digits, '_', '-' and '.', and begins with a letter or '_': a subset of what XML
/// allows.
[[nodiscard]] bool IsXmlName(std::string_view name) noexcept;
[[nodiscard]] bool IsXmlNameCharacter(char character) noexcept;
/// Whether XML 1.0 can hold the text: no control characters but tab, LF and CR.
[[nodiscard]] bool IsXmlText(std::string_view text) noexcept;
/// Appends the text as an attribute or as text holds it: markup, and what a parser would normalise, as references.
void AppendXmlText(std::string& out, std::string_view text);
/// Tells the character of a reference without its '&' and ';' ("amp", "#233", "#xE9") in code page 1252; false when it is none, or
/// the code page lacks it.
[[nodiscard]] bool ReadXmlReference(std::string_view reference, char& character) noexcept;

}  // namespace MLCore
