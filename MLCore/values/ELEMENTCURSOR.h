#pragma once

#include <MLCore/values/COBJECTITERATOR.h>

#include <cstddef>
#include <iterator>
#include <memory>

namespace MLCore {

/// What begin() of a collection returns: an input iterator over its elements, for range-for and the algorithms of
/// std::ranges. Changes of the collection meanwhile are as safe as COBJECTITERATOR says.
class ELEMENTCURSOR {
public:
    using value_type = CSHAREOBJECTPTR<COBJECT>;
    using difference_type = std::ptrdiff_t;

    /// Takes `iterator` (not null) over.
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

}  // namespace MLCore
