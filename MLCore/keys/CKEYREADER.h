#pragma once

#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/Export.h>

#include <string>
#include <string_view>

namespace MLCore {

/// Reads the elements that a CKEYWRITER wrote, from the first to the last: a key stream. CXMLKEYREADER reads XML.
///
///     if (reader.GetElementName() == "key") {
///         reader.BeginElement("key");
///         key = reader.GetAttribute("key");
///         reader.EndElement();
///     }
///
/// The reader stands on an element: the next one at this level. BeginElement() enters it; from then on its attributes
/// and its text can be read, and the reader stands on its first child. Everything unexpected fails with kErrValueType
/// (138); the text of the failure begins with the place: "line 3, column 17, in <key>: attribute 'key' is missing".
class MLCORE_API CKEYREADER {
public:
    /// The position of a reader.
    struct PLACE {
        unsigned long long line;    ///< from 1; 0 where the stream has no lines
        unsigned long long column;  ///< from 1, in characters
        std::string_view element;   ///< the element entered last, "" outside of all; until the reader is used again
    };

    virtual ~CKEYREADER();

    /// 1 when there is a further element at this level: the one that the reader stands on.
    [[nodiscard]] virtual int HasElement() = 0;
    /// Its name, valid until the reader is used again. Fails with kErrValueType when there is none.
    [[nodiscard]] virtual const std::string& GetElementName() = 0;
    /// Enters the element that the reader stands on. Fails with kErrValueType when it has another name, or there is
    /// none.
    virtual void BeginElement(std::string_view name) = 0;
    /// Leaves the element entered last. Fails with kErrValueType when it holds a child that was not read, an attribute
    /// that was not requested, or text other than blanks that was not taken.
    virtual void EndElement() = 0;
    /// 1 when the element entered last has the attribute, which then counts as requested. Must be called before a child
    /// of the element is entered.
    [[nodiscard]] virtual int HasAttribute(std::string_view name) = 0;
    /// The attribute's value, valid until the reader is used again. Fails with kErrValueType when there is none.
    [[nodiscard]] virtual const std::string& GetAttribute(std::string_view name) = 0;
    /// Takes the text of the element entered last; "" when it has children, or its text was taken.
    [[nodiscard]] virtual std::string GetText() = 0;
    /// The place of the tag read last.
    [[nodiscard]] virtual PLACE GetPlace() const noexcept = 0;

    /// Fails with kErrValueType for something that was read and cannot be used. The text is the place and the parts,
    /// which are those of FailWith(): `reader.FailHere(Quoted(value), " is not a date")`.
    template <class... Parts>
    [[noreturn]] void FailHere(const Parts&... parts) const;

protected:
    CKEYREADER() = default;
    CKEYREADER(const CKEYREADER&) = default;
    CKEYREADER& operator=(const CKEYREADER&) = default;

    /// The same for another place.
    template <class... Parts>
    [[noreturn]] static void FailAt(const PLACE& place, const Parts&... parts);
};

template <class... Parts>
void CKEYREADER::FailHere(const Parts&... parts) const {
    FailAt(GetPlace(), parts...);
}

template <class... Parts>
void CKEYREADER::FailAt(const PLACE& place, const Parts&... parts) {
    constexpr std::size_t kMaxName = 60;
    const bool isInside = !place.element.empty();
    FailWith(kErrValueType, "line ", place.line, ", column ", place.column, isInside ? ", in <" : "",
             place.element.substr(0, kMaxName), isInside ? ">: " : ": ", parts...);
}

}  // namespace MLCore
