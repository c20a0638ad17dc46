#pragma once

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// Holds one reference to an object of any shared class while it lives: the untyped guard for code that counts by hand.
/// To keep and use an object, take CSHAREOBJECTPTR.
class MLCORE_API CSHAREOBJECTCOUNTER {
public:
    /// Holds `object` (may be null). With `adopt` 0 a reference is added; otherwise the one that the caller holds is
    /// taken over.
    CSHAREOBJECTCOUNTER(CSHAREOBJECT* object, int adopt);
    ~CSHAREOBJECTCOUNTER();
    CSHAREOBJECTCOUNTER(const CSHAREOBJECTCOUNTER&) = delete;
    CSHAREOBJECTCOUNTER& operator=(const CSHAREOBJECTCOUNTER&) = delete;

    /// Holds `object` (may be null) instead, with a reference added; the object held before is released. Nothing
    /// happens when it is held already.
    void Attach(CSHAREOBJECT* object);

private:
    CSHAREOBJECT* mObject;
};

}  // namespace MLCore
