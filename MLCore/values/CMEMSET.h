#pragma once

#include <MLCore/values/CSET.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <unordered_map>
#include <vector>

namespace MLCore {

/// The set in memory. Adding, removing and finding an object take constant time on average.
class MLCORE_API CMEMSET : public CSET {
    MLCORE_CLASS(CMEMSET, CSET)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CSET> Create();
    /// A set of these objects, except nulls.
    [[nodiscard]] static CSHAREOBJECTPTR<CSET> Create(COBJECT* object);
    [[nodiscard]] static CSHAREOBJECTPTR<CSET> Create(COBJECT* first, COBJECT* second);
    [[nodiscard]] static CSHAREOBJECTPTR<CSET> Create(std::initializer_list<COBJECT*> objects);
    /// A set of the `count` objects at `objects`; empty when `count` is not positive. Fails with kErrNull (-100) when
    /// `objects` is null and `count` positive.
    [[nodiscard]] static CSHAREOBJECTPTR<CSET> Create(COBJECT* const* objects, long count);
    /// A set of the elements of an array. Fails with kErrNull when it is null. To make a set whose one element is an
    /// array, pass a COBJECT*.
    [[nodiscard]] static CSHAREOBJECTPTR<CSET> Create(CARRAY* objects);

    [[nodiscard]] long GetCount() const override;
    int AddObject(COBJECT* object) override;
    int RemoveObject(COBJECT* object) override;
    [[nodiscard]] int ContainsObject(COBJECT* object) const override;
    void RemoveAll() override;
    [[nodiscard]] COBJECTITERATOR* CreateIterator() const override;

private:
    class ELEMENTITERATOR;
    // A removed element leaves a hole until Compact(). Serials grow along the entries and outlast the moves of
    // Compact().
    struct ENTRY {
        std::uint64_t serial;
        CSHAREOBJECTPTR<COBJECT> object;
    };

    CMEMSET() = default;
    ~CMEMSET() override;
    void Compact();

    std::vector<ENTRY> mEntries;
    std::unordered_map<COBJECT*, std::size_t> mPlaces;  // the index of each element's entry
    std::uint64_t mNextSerial = 0;
    std::uint64_t mMoves = 0;  // how often the entries have moved
    std::size_t mFirst = 0;    // no element's entry is before it
};

}  // namespace MLCore
