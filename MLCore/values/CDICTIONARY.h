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

/// Objects under text keys, each held by one reference. Values may be null. CMEMDICTIONARY makes dictionaries in
/// memory.
///
///     record->SetKeyValue("customer", customer);
///     record->GetKeyPathValue("customer.name");
///
/// A key may hold any bytes. Keys are ordered by their bytes, as unsigned numbers. A key path cannot reach the empty
/// key or a key that holds ".", "[" or "]".
class MLCORE_API CDICTIONARY : public COBJECT {
    MLCORE_CLASS(CDICTIONARY, COBJECT)

public:
    /// A new iterator over the values, in the order of their keys. The caller deletes it.
    [[nodiscard]] virtual COBJECTITERATOR* CreateValueIterator() const = 0;
    /// A new array of the keys, as CVALUEOBJECT texts. A text ends at the first zero byte.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> GetKeys() const = 0;
    /// A new array of the values, in the order of GetKeys().
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> GetValues() const = 0;

    [[nodiscard]] virtual long GetCount() const = 0;
    /// 1 when `key` has a value, which may be null.
    [[nodiscard]] virtual int ContainsKey(const std::string& key) const = 0;
    /// Removes `key` and its value. Returns 1 when the key had a value, else 0.
    virtual int RemoveKey(const std::string& key) = 0;
    virtual void RemoveAll() = 0;

    /// The value of `key`; null when it has none. No key is unknown to a dictionary, so this does not fail.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override = 0;
    /// Sets the value of `key`. `value` may be null; the previous value is released.
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
