#pragma once

#include <MLCore/platform/Export.h>

#include <string_view>

namespace MLCore {

/// Writes a tree of named elements with attributes and text: a key stream. CXMLKEYWRITER is the one that makes a file of
/// it.
///
///     writer.BeginElement("key");
///     writer.SetAttribute("key", "customer.name");
///     writer.EndElement();
///
/// Element and attribute names are made of ASCII letters, digits, '_', '-' and '.', and begin with a letter or '_'. Texts are in
/// code page 1252. What cannot be written, such as a name of other characters, an attribute behind a child or a control
/// character, fails with 138 before anything of it is written.
class MLCORE_API CKEYWRITER {
public:
    virtual ~CKEYWRITER();

    virtual void BeginElement(std::string_view name) = 0;
    /// Ends the element begun last.
    virtual void EndElement() = 0;
    /// Gives the element begun last an attribute, before any text or child of it, and each name once.
    virtual void SetAttribute(std::string_view name, std::string_view value) = 0;
    /// Appends to the text of the element begun last. An element has text or children, not both; blanks count as text.
    virtual void SetText(std::string_view text) = 0;

protected:
    CKEYWRITER() = default;
    CKEYWRITER(const CKEYWRITER&) = default;
    CKEYWRITER& operator=(const CKEYWRITER&) = default;
};

}  // namespace MLCore
