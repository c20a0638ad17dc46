#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <utility>
#include <vector>

namespace MLCore {

/// Remembers its key, and its place in the map for as long as nothing is removed.
class CMEMDICTIONARY::VALUEITERATOR final : public COBJECTITERATOR {
public:
    explicit VALUEITERATOR(CMEMDICTIONARY* dictionary) : mDictionary(dictionary) { GoTo(mDictionary->mValues.begin()); }

    void Next() override {
        if (!mIsPast) {
            GoTo(IsPlaceValid() ? std::next(mPlace) : mDictionary->mValues.upper_bound(mKey));
        }
    }
    int IsEnd() const override { return Place() == mDictionary->mValues.end() ? 1 : 0; }
    CSHAREOBJECTPTR<COBJECT> GetCurrent() const override {
        const auto place = Place();
        return place != mDictionary->mValues.end() ? place->second : nullptr;
    }

private:
    using PLACE = VALUES::const_iterator;

    bool IsPlaceValid() const { return mRemovals == mDictionary->mRemovals; }
    PLACE Place() const {
        const VALUES& values = mDictionary->mValues;
        if (mIsPast) {
            return values.end();
        }
        return IsPlaceValid() ? mPlace : values.lower_bound(mKey);
    }
    void GoTo(PLACE place) {
        mRemovals = mDictionary->mRemovals;
        mPlace = place;
        mIsPast = place == mDictionary->mValues.end();
        if (!mIsPast) {
            mKey = place->first;
        }
    }

    CSHAREOBJECTPTR<CMEMDICTIONARY> mDictionary;
    PLACE mPlace;
    std::string mKey;
    std::uint64_t mRemovals = 0;
    bool mIsPast = false;
};

MLCORE_REGISTER_CLASS(CMEMDICTIONARY)

// The destructor of a value may still set others.
CMEMDICTIONARY::~CMEMDICTIONARY() {
    while (!mValues.empty()) {
        CMEMDICTIONARY::RemoveAll();
    }
}

CSHAREOBJECTPTR<CDICTIONARY> CMEMDICTIONARY::Create() { return AdoptObject<CDICTIONARY>(new CMEMDICTIONARY); }

CSHAREOBJECTPTR<CDICTIONARY> CMEMDICTIONARY::Create(const std::string& key, COBJECT* value) {
    return Create(&key, &value, 1);
}

CSHAREOBJECTPTR<CDICTIONARY> CMEMDICTIONARY::Create(const std::string* keys, COBJECT* const* values, long count) {
    CSHAREOBJECTPTR<CDICTIONARY> dictionary = Create();
    if (count > 0) {
        FailNull(keys);
        FailNull(values);
    }
    for (long index = 0; index < count; ++index) {
        dictionary->SetKeyValue(keys[index], values[index]);
    }
    return dictionary;
}

// Being iterated is a matter of owners, not of the dictionary's value.
COBJECTITERATOR* CMEMDICTIONARY::CreateValueIterator() const {
    return new VALUEITERATOR(const_cast<CMEMDICTIONARY*>(this));
}

CSHAREOBJECTPTR<CARRAY> CMEMDICTIONARY::GetKeys() const {
    std::vector<CSHAREOBJECTPTR<COBJECT>> keys;
    keys.reserve(mValues.size());
    for (const auto& [key, value] : mValues) {
        keys.emplace_back(CVALUEOBJECT::Create(CVALUE(key.c_str())));
    }
    return CMEMARRAY::Create(std::move(keys));
}

CSHAREOBJECTPTR<CARRAY> CMEMDICTIONARY::GetValues() const {
    std::vector<CSHAREOBJECTPTR<COBJECT>> values;
    values.reserve(mValues.size());
    for (const auto& [key, value] : mValues) {
        values.push_back(value);
    }
    return CMEMARRAY::Create(std::move(values));
}

long CMEMDICTIONARY::GetCount() const { return static_cast<long>(mValues.size()); }

int CMEMDICTIONARY::ContainsKey(const std::string& key) const { return mValues.contains(key) ? 1 : 0; }

CSHAREOBJECTPTR<COBJECT> CMEMDICTIONARY::GetKeyValue(const std::string& key) {
    const auto found = mValues.find(key);
    return found != mValues.end() ? found->second : nullptr;
}

// What leaves the dictionary is released last, when the dictionary is whole again: the destructor of an object may change it.

void CMEMDICTIONARY::SetKeyValue(const std::string& key, COBJECT* value) {
    CSHAREOBJECTPTR<COBJECT> other(value);
    std::swap(mValues[key], other);
}

int CMEMDICTIONARY::RemoveKey(const std::string& key) {
    const VALUES::node_type removed = mValues.extract(key);
    if (removed.empty()) {
        return 0;
    }
    ++mRemovals;
    return 1;
}

void CMEMDICTIONARY::RemoveAll() {
    ++mRemovals;
    std::exchange(mValues, {});
}

}  // namespace MLCore
