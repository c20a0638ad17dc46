#pragma once

#include <MLCore/values/CARRAY.h>

#include <initializer_list>
#include <vector>

namespace MLCore {

/// The array in memory. Appending takes constant time on average. Access to an element always takes constant time.
class MLCORE_API CMEMARRAY : public CARRAY {
    MLCORE_CLASS(CMEMARRAY, CARRAY)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create();
    /// An empty array with room for about `capacity` elements. This is a hint: a negative one counts as 0, one above
    /// 65536 as 65536.
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(long capacity);
    /// An array of these objects, nulls included.
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(COBJECT* object);
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(COBJECT* first, COBJECT* second);
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(std::initializer_list<COBJECT*> objects);
    /// An array of the `count` objects at `objects`; empty when `count` is not positive. Fails with kErrNull (-100)
    /// when `objects` is null and `count` positive.
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(COBJECT* const* objects, long count);
    /// An array of these objects; it takes over the references.
    [[nodiscard]] static CSHAREOBJECTPTR<CARRAY> Create(std::vector<CSHAREOBJECTPTR<COBJECT>> objects);

    [[nodiscard]] long GetCount() const override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetObjectAt(long index) const override;
    [[nodiscard]] long GetObjectIndex(COBJECT* object) const override;
    void AddObject(COBJECT* object) override;
    void InsertObject(long index, COBJECT* object) override;
    void SetObjectAt(long index, COBJECT* object) override;
    void RemoveObjectAt(long index) override;
    void RemoveAll() override;
    [[nodiscard]] COBJECTITERATOR* CreateIterator() const override;

private:
    class ELEMENTITERATOR;

    CMEMARRAY() = default;
    ~CMEMARRAY() override;

    std::vector<CSHAREOBJECTPTR<COBJECT>> mObjects;
};

}  // namespace MLCore
