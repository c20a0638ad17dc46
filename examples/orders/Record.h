/// Objects whose properties are declared once, in a table: access by key, and reading and writing files, go through it.
#pragma once

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/values/CARRAY.h>

#include <span>
#include <string>
#include <variant>
#include <vector>

#include "Amount.h"

namespace orders {

class CRECORD;

/// A property of a class of records: its key, which is also the name of its column in a file, and the member that holds
/// it.
///
/// | member      | by key                         | in a file                                                       |
/// |-------------|--------------------------------|-----------------------------------------------------------------|
/// | std::string | String                         | at most 32767 characters of code page 1252, none of them zero    |
/// | long        | Long                           | decimal digits, within 32 bits                                  |
/// | CDATE       | Date                           | YYYY-MM-DD                                                      |
/// | AMOUNT      | Double, at most 4 decimals     | see AMOUNT                                                      |
struct PROPERTY {
    using MEMBER = std::variant<std::string CRECORD::*, long CRECORD::*, MLCore::CDATE CRECORD::*, AMOUNT CRECORD::*>;

    template <class RECORD, class VALUE>
    constexpr PROPERTY(const char* itsKey, VALUE RECORD::*itsMember, bool itMayLack = false)
        : key(itsKey), member(static_cast<VALUE CRECORD::*>(itsMember)), mayLack(itMayLack) {}

    const char* key;
    MEMBER member;
    bool mayLack;  // a file may lack the column: then the property stays "" or 0
};
using PROPERTIES = std::span<const PROPERTY>;

/// The base of all records.
class CRECORD : public MLCore::COBJECT {
    MLCORE_CLASS(CRECORD, MLCore::COBJECT)
public:
    [[nodiscard]] virtual PROPERTIES GetProperties() const = 0;

    /// A new value object of the property's type. An unknown key fails with kErrUnknownKey (151), here and below.
    [[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::COBJECT> GetKeyValue(const std::string& key) override;
    /// Takes a value object of the property's type; anything else fails with kErrValueType (138).
    void SetKeyValue(const std::string& key, MLCore::COBJECT* value) override;

    /// The text of a property as it stands in a file. SetText() returns false for any other text, and leaves the
    /// property with an unspecified value.
    [[nodiscard]] std::string GetText(const PROPERTY& property) const;
    [[nodiscard]] bool SetText(const PROPERTY& property, const std::string& text);
    /// The texts that SetText() accepts: "an amount".
    [[nodiscard]] static const char* TypeName(const PROPERTY& property);

private:
    const PROPERTY& PropertyOf(const std::string& key);
};

/// The elements of an array, all of which must be RECORDs. The array keeps them.
template <class RECORD>
[[nodiscard]] std::vector<RECORD*> ElementsOf(const MLCore::CARRAY& array) {
    std::vector<RECORD*> elements;
    for (const auto& object : array) {
        elements.push_back(static_cast<RECORD*>(object.Get()));
    }
    return elements;
}

}  // namespace orders
