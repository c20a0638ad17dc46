#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/ELEMENTCURSOR.h>

#include <iterator>
#include <string>

namespace MLCore {

/// A collection that holds each object once, by one reference. Objects are compared by identity, not by contents. Null
/// is never an element. The order is that of insertion. CMEMSET makes sets in memory.
///
/// The operations with another set or an array fail with kErrNull (-100) when it is null, and are linear in the
/// elements of both. The other set may be this one.
class MLCORE_API CSET : public COBJECT {
    MLCORE_CLASS(CSET, COBJECT)

public:
    /// Adds the elements of `objects` except nulls.
    virtual void AddObjects(CARRAY* objects);
    /// 1 when each element of `other` is an element of this set.
    [[nodiscard]] virtual int Contains(CSET* other) const;
    /// 1 when an element of `other` is an element of this set.
    [[nodiscard]] virtual int Intersects(CSET* other) const;
    /// A new array of the elements.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CARRAY> GetObjects() const;
    /// Removes the objects that are not elements of `other`.
    virtual void Intersect(CSET* other);
    /// Adds the elements of `other`.
    virtual void Union(CSET* other);
    /// Removes the elements of `other`. The name keeps its established spelling.
    virtual void Substract(CSET* other);

    [[nodiscard]] virtual long GetCount() const = 0;
    /// Adds `object` at the end and returns 1. Returns 0 when it already is an element, and for null.
    virtual int AddObject(COBJECT* object) = 0;
    /// Removes `object` and returns 1. Returns 0 when it is not an element.
    virtual int RemoveObject(COBJECT* object) = 0;
    /// 1 when `object` is an element.
    [[nodiscard]] virtual int ContainsObject(COBJECT* object) const = 0;
    virtual void RemoveAll() = 0;
    /// A new iterator on the first element. The caller deletes it.
    [[nodiscard]] virtual COBJECTITERATOR* CreateIterator() const = 0;

    /// These work like those of CARRAY, in the order of insertion.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override;
    void SetKeyValue(const std::string& key, COBJECT* value) override;

    [[nodiscard]] ELEMENTCURSOR begin() const { return ELEMENTCURSOR(CreateIterator()); }
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

protected:
    CSET() = default;
    CSET(const CSET&) = default;
    CSET& operator=(const CSET&) = delete;
    ~CSET() override;
};

}  // namespace MLCore
