#include <MLCore/values/CMEMDICTIONARY.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace MLCore {

/// Remembers its key, and its place for as long as entries stay where they are.
class CMEMDICTIONARY::VALUEITERATOR final : public COBJECTITERATOR {
public:
    explicit VALUEITERATOR(CMEMDICTIONARY* dictionary) : mDictionary(dictionary) { GoTo(Entries().First()); }

    void Next() override {
        if (mIsPast) {
            return;
        }
        const PLACE place = Place();
        const bool isReached = place.entry != nullptr && place.entry->key == mKey;
        GoTo(isReached ? Entries().Next(place) : place);
    }
    int IsEnd() const override { return Place().entry == nullptr ? 1 : 0; }
    CSHAREOBJECTPTR<COBJECT> GetCurrent() const override {
        const PLACE place = Place();
        return place.entry != nullptr ? place.entry->object : nullptr;
    }

private:
    using PLACE = KEYEDOBJECTS::PLACE;

    const KEYEDOBJECTS& Entries() const { return mDictionary->mEntries; }
    PLACE Place() const {
        if (mIsPast) {
            return {};
        }
        return mMoves == Entries().GetMoves() ? mPlace : Entries().From(mKey);
    }
    void GoTo(const PLACE& place) {
        mMoves = Entries().GetMoves();
        mPlace = place;
        mIsPast = place.entry == nullptr;
        if (!mIsPast) {
            mKey = place.entry->key;
        }
    }

    CSHAREOBJECTPTR<CMEMDICTIONARY> mDictionary;
    PLACE mPlace;
    std::string mKey;
    std::uint64_t mMoves = 0;
    bool mIsPast = false;
};

MLCORE_REGISTER_CLASS(CMEMDICTIONARY)

// The destructor of a value may still set others.
CMEMDICTIONARY::~CMEMDICTIONARY() {
    while (mEntries.GetCount() != 0) {
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
        Require(keys != nullptr, kErrNull, "null instead of ", count, " keys for a dictionary");
        Require(values != nullptr, kErrNull, "null instead of ", count, " values for a dictionary");
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
    keys.reserve(mEntries.GetCount());
    for (auto place = mEntries.First(); place.entry != nullptr; place = mEntries.Next(place)) {
        keys.emplace_back(CVALUEOBJECT::Create(CVALUE(place.entry->key.c_str())));
    }
    return CMEMARRAY::Create(std::move(keys));
}

CSHAREOBJECTPTR<CARRAY> CMEMDICTIONARY::GetValues() const {
    std::vector<CSHAREOBJECTPTR<COBJECT>> values;
    values.reserve(mEntries.GetCount());
    for (auto place = mEntries.First(); place.entry != nullptr; place = mEntries.Next(place)) {
        values.push_back(place.entry->object);
    }
    return CMEMARRAY::Create(std::move(values));
}

long CMEMDICTIONARY::GetCount() const { return static_cast<long>(mEntries.GetCount()); }

int CMEMDICTIONARY::ContainsKey(const std::string& key) const { return mEntries.Find(key) != nullptr ? 1 : 0; }

CSHAREOBJECTPTR<COBJECT> CMEMDICTIONARY::GetKeyValue(const std::string& key) {
    const KEYEDOBJECTS::ENTRY* const found = mEntries.Find(key);
    return found != nullptr ? found->object : nullptr;
}

// What leaves the dictionary is released last, when the dictionary is whole again: the destructor of an object may
// change it.

void CMEMDICTIONARY::SetKeyValue(const std::string& key, COBJECT* value) {
    CSHAREOBJECTPTR<COBJECT> other(value);
    std::swap(mEntries.At(key), other);
}

int CMEMDICTIONARY::RemoveKey(const std::string& key) {
    CSHAREOBJECTPTR<COBJECT> removed;
    return mEntries.Remove(key, removed) ? 1 : 0;
}

void CMEMDICTIONARY::RemoveAll() { mEntries.RemoveAll(); }

}  // namespace MLCore
