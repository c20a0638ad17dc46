#pragma once

#include <MLCore/values/COBJECTITERATOR.h>

#include <cstddef>
#include <iterator>
#include <memory>

namespace MLCore {

/// The input iterator that begin() of a collection returns, for range-for and the algorithms of std::ranges. The
/// collection may change meanwhile, as COBJECTITERATOR describes.
class ELEMENTCURSOR {
public:
    using value_type = CSHAREOBJECTPTR<COBJECT>;
    using difference_type = std::ptrdiff_t;

    /// Takes over `iterator`, which must not be null.
    explicit ELEMENTCURSOR(COBJECTITERATOR* iterator) : mIterator(iterator) {}

    value_type operator*() const { return mIterator->GetCurrent(); }
    ELEMENTCURSOR& operator++() {
        mIterator->Next();
        return *this;
    }
    void operator++(int) { ++*this; }
    friend bool operator==(const ELEMENTCURSOR& cursor, std::default_sentinel_t) {
        return cursor.mIterator->IsEnd() != 0;
    }

private:
    std::unique_ptr<COBJECTITERATOR> mIterator;
};

/// Range-for over a holder of a collection, which must not be null and which the loop keeps alive: `for (... :
/// orders->Filter(isLate))`. With `*orders->Filter(isLate)` the array would be released before the loop begins.
template <class Collection>
auto begin(const CSHAREOBJECTPTR<Collection>& collection) -> decltype(collection->begin()) {
    return collection->begin();
}
template <class Collection>
auto end(const CSHAREOBJECTPTR<Collection>& collection) -> decltype(collection->end()) {
    return collection->end();
}

}  // namespace MLCore
