#pragma once

#include <MLCore/core/CCLASSTYPEINFO.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

class COBJECT;

/// The protocol of objects with numbered elements, such as arrays. An index step of a key path ("orders[2]") needs it.
class MLCORE_API CINDEXEDACCESS : public PROTOCOL {
public:
    /// The number of elements; they are numbered from 0.
    [[nodiscard]] virtual long GetCount() const = 0;
    /// The element, which may be null. Fails with kErrUnknownKey (151) when `index` is out of range.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> GetObjectAt(long index) const = 0;
    /// Replaces the element by `object` (may be null) and adds a reference. Fails with kErrUnknownKey when `index` is
    /// out of range.
    virtual void SetObjectAt(long index, COBJECT* object) = 0;

    static const CCLASSTYPEINFO& ClassInfoStatic();

protected:
    ~CINDEXEDACCESS() override;
};

}  // namespace MLCore
