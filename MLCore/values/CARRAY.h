#pragma once

#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/ELEMENTCURSOR.h>
#include <MLCore/values/Elements.h>

#include <concepts>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace MLCore {

class CDICTIONARY;
class CPREDICATE;

/// An ordered collection of objects, each held by one reference. Elements may be null. CMEMARRAY makes arrays in
/// memory.
///
///     CSHAREOBJECTPTR<CARRAY> late = orders->Filter(isLate);
///     CSHAREOBJECTPTR<COBJECT> amounts = late->GetKeyValue("amount");  // an array again
///     CSHAREOBJECTPTR<COBJECT> amount = orders->GetKeyPathValue("[2].amount");
///
/// Indexes start at 0. An object is found by its identity, never by its contents. An array that holds itself, directly
/// or not, is freed only after the circle is broken. Objects that hold each other are released recursively: some ten
/// thousand levels take all of a thread's stack.
class MLCORE_API CARRAY : public COBJECT, public CINDEXEDACCESS {
    MLCORE_CLASS(CARRAY, COBJECT, CINDEXEDACCESS)

public:
    [[nodiscard]] long GetCount() const override = 0;
    /// Fails with kErrUnknownKey (151) when `index` is out of range.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetObjectAt(long index) const override = 0;
    /// 1 when `object` is an element. Linear.
    [[nodiscard]] virtual int ExistObject(COBJECT* object) const;
    /// The index of the first element that is `object`; -1 when no element is. Linear.
    [[nodiscard]] virtual long GetObjectIndex(COBJECT* object) const;

    // An added object may be null. The array adds a reference to it.
    /// Appends `object`.
    virtual void AddObject(COBJECT* object) = 0;
    /// Inserts `object` before the element at `index`, or at the end when `index` is the count. Fails with
    /// kErrUnknownKey outside 0..count. Linear in the elements after it.
    virtual void InsertObject(long index, COBJECT* object) = 0;
    /// Replaces an element. Fails with kErrUnknownKey when `index` is out of range.
    void SetObjectAt(long index, COBJECT* object) override = 0;
    /// Removes an element. Fails with kErrUnknownKey when `index` is out of range. Linear in the elements after it.
    virtual void RemoveObjectAt(long index) = 0;
    virtual void RemoveAll() = 0;

    /// A new array of the elements, in order, for which `predicate` is true; of all elements when it is null. The
    /// elements are those at the time of the call, whatever the predicate does to this array. Failures of the predicate
    /// pass through.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> Filter(CPREDICATE* predicate);
    /// A new iterator on the first element. The caller deletes it.
    [[nodiscard]] virtual COBJECTITERATOR* CreateIterator() const;
    /// The first and the last element; null when the array is empty.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> First() const;
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> Last() const;

    /// Filter() with `variables`, which give the values of the predicate's variables. With null variables it is the
    /// same as Filter(predicate). A derived class that overrides the other Filter() must repeat `using CARRAY::Filter;`
    /// to keep this one visible.
    [[nodiscard]] CSHAREOBJECTPTR<CARRAY> Filter(CPREDICATE* predicate, CDICTIONARY* variables);
    /// A new array of the elements, in order, for which `test` is true. `test` is called with each element, which may
    /// be null, and returns a bool or a number:
    ///
    ///     const auto known = orders->FilterIf([](COBJECT* order) { return order != nullptr; });
    ///
    /// The elements are those at the time of the call, whatever the test does to this array. Exceptions pass through.
    template <std::predicate<COBJECT*> Test>
    [[nodiscard]] CSHAREOBJECTPTR<CARRAY> FilterIf(Test test) const;

    /// A new array of the elements' values for `key`, in order; null for a null element. Fails with kErrUnknownKey when
    /// an element does not know the key, and when more than 256 arrays and sets lie inside each other.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override;
    /// Sets `key` of each element to the element of the array `value` at the same place. Extra elements of `value` are
    /// ignored. Before anything is set, fails with kErrNull (-100) when `value` is not an array, and with
    /// kErrUnknownKey when it is shorter or when an element here is null. When an element refuses its value, the
    /// failure passes through, and the elements before it are set.
    void SetKeyValue(const std::string& key, COBJECT* value) override;

    [[nodiscard]] ELEMENTCURSOR begin() const { return ELEMENTCURSOR(CreateIterator()); }
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

protected:
    CARRAY() = default;
    CARRAY(const CARRAY&) = default;
    CARRAY& operator=(const CARRAY&) = delete;
    ~CARRAY() override;

private:
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> MakeArray(Elements elements);
};

template <std::predicate<COBJECT*> Test>
CSHAREOBJECTPTR<CARRAY> CARRAY::FilterIf(Test test) const {
    Elements elements = ElementsOf(*this);
    std::erase_if(elements, [&test](const CSHAREOBJECTPTR<COBJECT>& element) { return !test(element.Get()); });
    return MakeArray(std::move(elements));
}

}  // namespace MLCore
