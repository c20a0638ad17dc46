#pragma once

#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/ELEMENTCURSOR.h>

#include <iterator>
#include <string>

namespace MLCore {

class CPREDICATE;

/// An ordered collection of objects, each held by one reference; null elements are allowed. CMEMARRAY makes them.
///
///     CSHAREOBJECTPTR<CARRAY> late = orders->Filter(isLate);
///     CSHAREOBJECTPTR<COBJECT> amounts = late->GetKeyValue("amount");  // an array again
///     CSHAREOBJECTPTR<COBJECT> amount = orders->GetKeyPathValue("[2].amount");
///
/// Indexes start at 0. An object is found by its identity, never by its contents. An array that holds itself, directly or
/// not, is never freed until the circle is broken. Objects inside each other are released one inside the other too: some ten
/// thousand levels take all of a thread's stack.
class MLCORE_API CARRAY : public COBJECT, public CINDEXEDACCESS {
    MLCORE_CLASS(CARRAY, COBJECT, CINDEXEDACCESS)

public:
    [[nodiscard]] long GetCount() const override = 0;
    /// Fails with 151 when `index` is out of range.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetObjectAt(long index) const override = 0;
    /// 1 when `object` is an element. Linear.
    [[nodiscard]] virtual int ExistObject(COBJECT* object) const;
    /// The index of the first element that is `object`, -1 when there is none. Linear.
    [[nodiscard]] virtual long GetObjectIndex(COBJECT* object) const;

    /// Appends `object` (may be null), as all of these with a reference added.
    virtual void AddObject(COBJECT* object) = 0;
    /// Puts `object` in front of the element at `index`; at the end when `index` is the count. Fails with 151 outside
    /// 0..count. Linear in the elements behind.
    virtual void InsertObject(long index, COBJECT* object) = 0;
    /// Replaces an element. Fails with 151 when `index` is out of range.
    void SetObjectAt(long index, COBJECT* object) override = 0;
    /// Takes an element out. Fails with 151 when `index` is out of range. Linear in the elements behind.
    virtual void RemoveObjectAt(long index) = 0;
    virtual void RemoveAll() = 0;

    /// A new array with those elements, in order, for which `predicate` is true: all of them when it is null. The elements
    /// are those at the time of the call, whatever the predicate does to this array. Its failures pass through.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> Filter(CPREDICATE* predicate);
    /// A new iterator on the first element; the caller deletes it.
    [[nodiscard]] virtual COBJECTITERATOR* CreateIterator() const;
    /// The first and the last element; null holders when the array is empty.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> First() const;
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> Last() const;

    /// A new array of the elements' values for `key`, in order; null for a null element. An element that does not know the
    /// key fails with 151, and so do more than 256 arrays and sets inside each other.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override;
    /// Gives each element, for `key`, the element of the array `value` at the same place; what `value` has more is left
    /// out. Before anything is set, fails with -100 when `value` is no array, with 151 when it is shorter or when an
    /// element here is null. An element that refuses its value ends it, with those before it set.
    void SetKeyValue(const std::string& key, COBJECT* value) override;

    [[nodiscard]] ELEMENTCURSOR begin() const { return ELEMENTCURSOR(CreateIterator()); }
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

protected:
    CARRAY() = default;
    CARRAY(const CARRAY&) = default;
    CARRAY& operator=(const CARRAY&) = delete;
    ~CARRAY() override;
};

}  // namespace MLCore
