#include <MLCore/values/CMEMARRAY.h>

#include <MLCore/core/FailureChecks.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace MLCore {

namespace {

constexpr long kMaxCapacity = 65536;

/// The index of an element.
std::size_t CheckedIndex(long index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) [[unlikely]] {
        FailWith(kErrUnknownKey, "the array has ", count, " elements, asked for [", index, "]");
    }
    return static_cast<std::size_t>(index);
}

/// The index of an element, or of the end.
std::size_t CheckedPlace(long index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) > count) [[unlikely]] {
        FailWith(kErrUnknownKey, "the array has ", count, " elements, asked to insert one at [", index, "]");
    }
    return static_cast<std::size_t>(index);
}

}  // namespace

/// Stands on an index as that of every array does, but asks nobody.
class CMEMARRAY::ELEMENTITERATOR final : public COBJECTITERATOR {
public:
    explicit ELEMENTITERATOR(CMEMARRAY* array) : mArray(array) {}

    void Next() override {
        if (mIndex < mArray->mObjects.size()) {
            ++mIndex;
        }
    }
    int IsEnd() const override { return mIndex >= mArray->mObjects.size() ? 1 : 0; }
    CSHAREOBJECTPTR<COBJECT> GetCurrent() const override {
        return mIndex < mArray->mObjects.size() ? mArray->mObjects[mIndex] : nullptr;
    }

private:
    CSHAREOBJECTPTR<CMEMARRAY> mArray;
    std::size_t mIndex = 0;
};

MLCORE_REGISTER_CLASS(CMEMARRAY)

// The destructor of an element may still add others.
CMEMARRAY::~CMEMARRAY() {
    while (!mObjects.empty()) {
        CMEMARRAY::RemoveAll();
    }
}

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create() { return AdoptObject<CARRAY>(new CMEMARRAY); }

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create(long capacity) {
    std::vector<CSHAREOBJECTPTR<COBJECT>> objects;
    objects.reserve(static_cast<std::size_t>(std::clamp(capacity, 0L, kMaxCapacity)));
    return Create(std::move(objects));
}

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create(COBJECT* object) { return Create(&object, 1); }

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create(COBJECT* first, COBJECT* second) { return Create({first, second}); }

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create(std::initializer_list<COBJECT*> objects) {
    return Create(objects.begin(), static_cast<long>(objects.size()));
}

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create(COBJECT* const* objects, long count) {
    if (count <= 0) {
        return Create();
    }
    Require(objects != nullptr, kErrNull, "null instead of ", count, " objects for an array");
    return Create(std::vector<CSHAREOBJECTPTR<COBJECT>>(objects, objects + count));
}

CSHAREOBJECTPTR<CARRAY> CMEMARRAY::Create(std::vector<CSHAREOBJECTPTR<COBJECT>> objects) {
    auto* const array = new CMEMARRAY;
    array->mObjects = std::move(objects);
    return AdoptObject<CARRAY>(array);
}

long CMEMARRAY::GetCount() const { return static_cast<long>(mObjects.size()); }

CSHAREOBJECTPTR<COBJECT> CMEMARRAY::GetObjectAt(long index) const {
    return mObjects[CheckedIndex(index, mObjects.size())];
}

long CMEMARRAY::GetObjectIndex(COBJECT* object) const {
    const auto found = std::find(mObjects.begin(), mObjects.end(), object);
    return found != mObjects.end() ? static_cast<long>(found - mObjects.begin()) : -1;
}

void CMEMARRAY::AddObject(COBJECT* object) { mObjects.emplace_back(object); }

void CMEMARRAY::InsertObject(long index, COBJECT* object) {
    mObjects.emplace(mObjects.begin() + static_cast<long>(CheckedPlace(index, mObjects.size())), object);
}

// What leaves the array is released last, when the array is whole again: the destructor of an object may change it.

void CMEMARRAY::SetObjectAt(long index, COBJECT* object) {
    CSHAREOBJECTPTR<COBJECT> other(object);
    std::swap(mObjects[CheckedIndex(index, mObjects.size())], other);
}

void CMEMARRAY::RemoveObjectAt(long index) {
    const auto place = mObjects.begin() + static_cast<long>(CheckedIndex(index, mObjects.size()));
    const CSHAREOBJECTPTR<COBJECT> removed = std::move(*place);
    mObjects.erase(place);
}

void CMEMARRAY::RemoveAll() { std::exchange(mObjects, {}); }

// Being iterated is a matter of owners, not of the array's value.
COBJECTITERATOR* CMEMARRAY::CreateIterator() const { return new ELEMENTITERATOR(const_cast<CMEMARRAY*>(this)); }

}  // namespace MLCore
