#pragma once

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// Holds one reference to an object of any shared class while it lives: an untyped guard for code that counts
/// references itself. To keep and use an object, use CSHAREOBJECTPTR.
class MLCORE_API CSHAREOBJECTCOUNTER {
public:
    /// Holds `object` (may be null). With `adopt` 0 it adds a reference; otherwise it takes over the caller's
    /// reference.
    CSHAREOBJECTCOUNTER(CSHAREOBJECT* object, int adopt);
    ~CSHAREOBJECTCOUNTER();
    CSHAREOBJECTCOUNTER(const CSHAREOBJECTCOUNTER&) = delete;
    CSHAREOBJECTCOUNTER& operator=(const CSHAREOBJECTCOUNTER&) = delete;

    /// Holds `object` (may be null) instead: adds a reference to it and releases the object held before. Nothing
    /// happens when `object` is already held.
    void Attach(CSHAREOBJECT* object);

private:
    CSHAREOBJECT* mObject;
};

}  // namespace MLCore
