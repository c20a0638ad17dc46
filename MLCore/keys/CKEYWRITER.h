#pragma once

#include <MLCore/platform/Export.h>

#include <string_view>

namespace MLCore {

/// Writes a tree of named elements with attributes and text: a key stream. CXMLKEYWRITER writes XML.
///
///     writer.BeginElement("key");
///     writer.SetAttribute("key", "customer.name");
///     writer.EndElement();
///
/// Names of elements and attributes consist of ASCII letters, digits, '_', '-' and '.', and begin with a letter or '_'.
/// Texts are in code page 1252. Anything else fails with kErrValueType (138) before any of it is written. A call out of
/// order fails in the same way, such as an attribute after a child.
class MLCORE_API CKEYWRITER {
public:
    virtual ~CKEYWRITER();

    /// Begins an element: a child of the element begun last and not ended, or the outermost one.
    virtual void BeginElement(std::string_view name) = 0;
    /// Ends the element begun last.
    virtual void EndElement() = 0;
    /// Adds an attribute to the element begun last. Must be called before any text or child of it, and once for each
    /// name.
    virtual void SetAttribute(std::string_view name, std::string_view value) = 0;
    /// Appends to the text of the element begun last. An element has text or children, never both; blanks count as
    /// text.
    virtual void SetText(std::string_view text) = 0;

protected:
    CKEYWRITER() = default;
    CKEYWRITER(const CKEYWRITER&) = default;
    CKEYWRITER& operator=(const CKEYWRITER&) = default;
};

}  // namespace MLCore
