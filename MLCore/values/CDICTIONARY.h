#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/ELEMENTCURSOR.h>

#include <iterator>
#include <string>

namespace MLCore {

/// Objects under text keys, each held by one reference; null values are allowed. CMEMDICTIONARY makes them.
///
///     record->SetKeyValue("customer", customer);
///     record->GetKeyPathValue("customer.name");
///
/// A key is any bytes; the order is that of the keys' bytes, as unsigned. Keys that hold ".", "[" or "]", and the empty
/// one, are out of reach of key paths.
class MLCORE_API CDICTIONARY : public COBJECT {
    MLCORE_CLASS(CDICTIONARY, COBJECT)

public:
    /// A new iterator over the values, in the order of their keys; the caller deletes it.
    [[nodiscard]] virtual COBJECTITERATOR* CreateValueIterator() const = 0;
    /// A new array of the keys, as CVALUEOBJECT texts. A text ends at the first zero byte.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> GetKeys() const = 0;
    /// A new array of the values, in the order of GetKeys().
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> GetValues() const = 0;

    [[nodiscard]] virtual long GetCount() const = 0;
    /// 1 when there is a value under `key`, be it null.
    [[nodiscard]] virtual int ContainsKey(const std::string& key) const = 0;
    /// Takes the value under `key` out; returns 1 when there was one.
    virtual int RemoveKey(const std::string& key) = 0;
    virtual void RemoveAll() = 0;

    /// The value under `key`, null when there is none: no key is unknown to a dictionary.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override = 0;
    /// Puts `value` (may be null) under `key`, in place of what was there.
    void SetKeyValue(const std::string& key, COBJECT* value) override = 0;

    /// The values, in the order of their keys.
    [[nodiscard]] ELEMENTCURSOR begin() const { return ELEMENTCURSOR(CreateValueIterator()); }
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

protected:
    CDICTIONARY() = default;
    CDICTIONARY(const CDICTIONARY&) = default;
    CDICTIONARY& operator=(const CDICTIONARY&) = delete;
    ~CDICTIONARY() override;
};

}  // namespace MLCore
