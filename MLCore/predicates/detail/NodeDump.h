#pragma once

#include <ostream>

namespace MLCore {

/// Writes the dump of a predicate or expression: "NAME(the accessor's result)"; "NAME()" for null.
template <class Node, class Accessor>
std::ostream& DumpNode(std::ostream& out, const char* className, const Node* node, Accessor accessor) {
    out << className << '(';
    if (node != nullptr) {
        out << (node->*accessor)();
    }
    return out << ')';
}

}  // namespace MLCore
