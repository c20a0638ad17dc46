/// What predicates and expressions share in writing themselves.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// An element with one attribute.
void WriteAttributeElement(CKEYWRITER& writer, const char* element, const char* attribute, std::string_view value);
/// Fails with 138 when it is another element, or lacks the attribute.
[[nodiscard]] std::string ReadAttributeElement(CKEYREADER& reader, const char* element, const char* attribute);

/// "NAME(what the accessor gives)"; "NAME()" for null.
template <class Node, class Accessor>
std::ostream& DumpNode(std::ostream& out, const char* className, const Node* node, Accessor accessor) {
    out << className << '(';
    if (node != nullptr) {
        out << (node->*accessor)();
    }
    return out << ')';
}

/// The dump of the first of these classes that the node is of; false, with nothing written, when it is of none.
template <class... Classes, class Node>
[[nodiscard]] bool DumpAsFirstOf(std::ostream& out, const Node* node) {
    const auto isDumped = [&out](const auto* own) {
        if (own != nullptr) {
            out << own;
        }
        return own != nullptr;
    };
    return (isDumped(dynamic_cast<const Classes*>(node)) || ...);
}

}  // namespace MLCore
