#include <MLCore/values/CMEMSET.h>

#include <MLCore/core/FailureChecks.h>

#include <algorithm>
#include <utility>

namespace MLCore {

/// Stands on a serial: on the element that has it, or on the first one after it.
class CMEMSET::ELEMENTITERATOR final : public COBJECTITERATOR {
public:
    explicit ELEMENTITERATOR(CMEMSET* set) : mSet(set), mIndex(set->mFirst), mMoves(set->mMoves) { GoToElement(); }

    void Next() override {
        const std::size_t index = Index();
        if (index < mSet->mEntries.size() && mSet->mEntries[index].serial == mSerial) {
            ++mIndex;
        }
        GoToElement();
    }
    int IsEnd() const override { return Index() == mSet->mEntries.size() ? 1 : 0; }
    CSHAREOBJECTPTR<COBJECT> GetCurrent() const override {
        const std::size_t index = Index();
        return index < mSet->mEntries.size() ? mSet->mEntries[index].object : nullptr;
    }

private:
    void GoToElement() {
        const std::size_t index = Index();
        mSerial = index < mSet->mEntries.size() ? mSet->mEntries[index].serial : mSet->mNextSerial;
    }
    // The first element with this serial or a later one. Its index is remembered: holes stay holes until the entries
    // move.
    std::size_t Index() const {
        const std::vector<ENTRY>& entries = mSet->mEntries;
        if (mMoves != mSet->mMoves) {
            const auto isBefore = [](const ENTRY& entry, std::uint64_t serial) { return entry.serial < serial; };
            const auto found = std::lower_bound(entries.begin(), entries.end(), mSerial, isBefore);
            mIndex = static_cast<std::size_t>(found - entries.begin());
            mMoves = mSet->mMoves;
        }
        while (mIndex < entries.size() && !entries[mIndex].object) {
            ++mIndex;
        }
        return mIndex;
    }

    CSHAREOBJECTPTR<CMEMSET> mSet;
    std::uint64_t mSerial = 0;
    mutable std::size_t mIndex;
    mutable std::uint64_t mMoves;
};

MLCORE_REGISTER_CLASS(CMEMSET)

// The destructor of an element may still add others.
CMEMSET::~CMEMSET() {
    while (!mEntries.empty()) {
        CMEMSET::RemoveAll();
    }
}

CSHAREOBJECTPTR<CSET> CMEMSET::Create() { return AdoptObject<CSET>(new CMEMSET); }

CSHAREOBJECTPTR<CSET> CMEMSET::Create(COBJECT* object) { return Create(&object, 1); }

CSHAREOBJECTPTR<CSET> CMEMSET::Create(COBJECT* first, COBJECT* second) { return Create({first, second}); }

CSHAREOBJECTPTR<CSET> CMEMSET::Create(std::initializer_list<COBJECT*> objects) {
    return Create(objects.begin(), static_cast<long>(objects.size()));
}

CSHAREOBJECTPTR<CSET> CMEMSET::Create(COBJECT* const* objects, long count) {
    CSHAREOBJECTPTR<CSET> set = Create();
    if (count > 0) {
        Require(objects != nullptr, kErrNull, "null instead of ", count, " objects for a set");
    }
    for (long index = 0; index < count; ++index) {
        set->AddObject(objects[index]);
    }
    return set;
}

CSHAREOBJECTPTR<CSET> CMEMSET::Create(CARRAY* objects) {
    CSHAREOBJECTPTR<CSET> set = Create();
    set->AddObjects(objects);
    return set;
}

long CMEMSET::GetCount() const { return static_cast<long>(mPlaces.size()); }

int CMEMSET::AddObject(COBJECT* object) {
    if (object == nullptr) {
        return 0;
    }
    const auto [place, isNew] = mPlaces.try_emplace(object, mEntries.size());
    if (!isNew) {
        return 0;
    }
    try {
        mEntries.push_back({mNextSerial, object});
    } catch (...) {
        mPlaces.erase(place);
        throw;
    }
    ++mNextSerial;
    return 1;
}

int CMEMSET::ContainsObject(COBJECT* object) const { return mPlaces.contains(object) ? 1 : 0; }

// What leaves the set is released last, when the set is whole again: the destructor of an object may change it.

int CMEMSET::RemoveObject(COBJECT* object) {
    const auto place = mPlaces.find(object);
    if (place == mPlaces.end()) {
        return 0;
    }
    const CSHAREOBJECTPTR<COBJECT> removed = std::move(mEntries[place->second].object);
    mPlaces.erase(place);
    while (mFirst < mEntries.size() && !mEntries[mFirst].object) {
        ++mFirst;
    }
    if (mEntries.size() > 2 * mPlaces.size()) {
        Compact();
    }
    return 1;
}

void CMEMSET::RemoveAll() {
    ++mMoves;
    mFirst = 0;
    mPlaces.clear();
    std::exchange(mEntries, {});
}

// Being iterated is a matter of owners, not of the set's value.
COBJECTITERATOR* CMEMSET::CreateIterator() const { return new ELEMENTITERATOR(const_cast<CMEMSET*>(this)); }

// Called when more than half of the entries are holes: on average, each removal pays for moving one entry.
void CMEMSET::Compact() {
    ++mMoves;
    mFirst = 0;
    std::erase_if(mEntries, [](const ENTRY& entry) { return !entry.object; });
    for (std::size_t index = 0; index < mEntries.size(); ++index) {
        mPlaces[mEntries[index].object] = index;
    }
}

}  // namespace MLCore
