#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <string_view>

namespace MLCore {

/// Reads what a CKEYWRITER wrote, from the first element to the last: a key stream. CXMLKEYREADER is the one that reads a
/// file.
///
///     if (reader.GetElementName() == "key") {
///         reader.BeginElement("key");
///         key = reader.GetAttribute("key");
///         reader.EndElement();
///     }
///
/// The reader stands on an element: the next one at this level. BeginElement() enters it; then its attributes and its text
/// can be asked for, and the reader stands on its first child. Whatever was not expected fails with 138.
class MLCORE_API CKEYREADER {
public:
    virtual ~CKEYREADER();

    /// 1 when there is a further element at this level: the one that the reader stands on.
    [[nodiscard]] virtual int HasElement() = 0;
    /// Its name, until the reader is used again. Fails with 138 when there is none.
    [[nodiscard]] virtual const std::string& GetElementName() = 0;
    /// Enters the element that the reader stands on. Fails with 138 when it has another name, or there is none.
    virtual void BeginElement(std::string_view name) = 0;
    /// Leaves the element entered last. Fails with 138 when it holds a child that was not read, an attribute that was not
    /// asked for, or text other than blanks that was not taken.
    virtual void EndElement() = 0;
    /// 1 when the element entered last has the attribute, which counts as asked for. May be asked until a child of it is
    /// entered.
    [[nodiscard]] virtual int HasAttribute(std::string_view name) = 0;
    /// The attribute's value, until the reader is used again. Fails with 138 when there is none.
    [[nodiscard]] virtual const std::string& GetAttribute(std::string_view name) = 0;
    /// Takes the text of the element entered last; "" when it has children, or its text was taken.
    [[nodiscard]] virtual std::string GetText() = 0;

protected:
    CKEYREADER() = default;
    CKEYREADER(const CKEYREADER&) = default;
    CKEYREADER& operator=(const CKEYREADER&) = default;
};

}  // namespace MLCore
