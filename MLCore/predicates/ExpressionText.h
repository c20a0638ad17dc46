/// What the classes of expressions share in writing themselves. Not for clients.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// An element with one attribute.
void WriteAttributeElement(CKEYWRITER& writer, const char* element, const char* attribute, std::string_view value);
/// Fails with 138 when it is another element, or lacks the attribute.
[[nodiscard]] std::string ReadAttributeElement(CKEYREADER& reader, const char* element, const char* attribute);

/// "NAME(text)".
std::ostream& DumpExpression(std::ostream& out, const char* className, std::string_view text);

}  // namespace MLCore
