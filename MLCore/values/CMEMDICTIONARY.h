#pragma once

#include <MLCore/values/CDICTIONARY.h>
#include <MLCore/values/detail/KEYEDOBJECTS.h>

namespace MLCore {

/// The dictionary in memory. Finding a key takes logarithmic time.
class MLCORE_API CMEMDICTIONARY : public CDICTIONARY {
    MLCORE_CLASS(CMEMDICTIONARY, CDICTIONARY)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CDICTIONARY> Create();
    /// One value (may be null) under one key.
    [[nodiscard]] static CSHAREOBJECTPTR<CDICTIONARY> Create(const std::string& key, COBJECT* value);
    /// `count` values under the keys at the same places; of equal keys the last one counts. Empty when `count` is not
    /// positive. Fails with kErrNull (-100) when `keys` or `values` is null and `count` positive.
    [[nodiscard]] static CSHAREOBJECTPTR<CDICTIONARY> Create(const std::string* keys, COBJECT* const* values,
                                                             long count);

    [[nodiscard]] COBJECTITERATOR* CreateValueIterator() const override;
    [[nodiscard]] CSHAREOBJECTPTR<CARRAY> GetKeys() const override;
    [[nodiscard]] CSHAREOBJECTPTR<CARRAY> GetValues() const override;
    [[nodiscard]] long GetCount() const override;
    [[nodiscard]] int ContainsKey(const std::string& key) const override;
    int RemoveKey(const std::string& key) override;
    void RemoveAll() override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override;
    void SetKeyValue(const std::string& key, COBJECT* value) override;

private:
    class VALUEITERATOR;

    CMEMDICTIONARY() = default;
    ~CMEMDICTIONARY() override;

    KEYEDOBJECTS mEntries;
};

}  // namespace MLCore
