#pragma once

#include <MLCore/platform/Export.h>

#include <atomic>
#include <cstdint>

namespace MLCore {

/// A heap object with a count of its owners. It is born with the count 1, which belongs to its creator, and deletes
/// itself when the last owner lets go. Owners are normally CSHAREOBJECTPTR holders and need not count by hand.
///
/// The count is atomic: each thread may hold and release its own references to one object. Everything else about an
/// object belongs to one thread at a time. Releasing more often than referencing is undefined, and so is taking a new
/// reference while the object is being destroyed: a destructor hands `this` to nobody. Destructors, Release and NoMoreRef
/// do not throw.
class MLCORE_API CSHAREOBJECT {
protected:
    CSHAREOBJECT() noexcept { mUseCount.exchange(1); }
    /// A copy is a new object with an owner of its own: it never inherits the count.
    CSHAREOBJECT(const CSHAREOBJECT&) noexcept : CSHAREOBJECT() {}
    /// Assigning copies values, not owners.
    CSHAREOBJECT& operator=(const CSHAREOBJECT&) noexcept { return *this; }
    virtual ~CSHAREOBJECT();

public:
    /// Adds an owner; returns the count after it.
    virtual unsigned long AddRef();
    /// Removes an owner and calls NoMoreRef() when it was the last. Returns the count *before* it, so 1 means that the
    /// object has just gone; that is intended, and all that a caller may learn from it.
    virtual unsigned long Release();
    /// The count now. Other threads may change it at once: good for tests and diagnostics, not for decisions.
    [[nodiscard]] virtual long GetUseCount() const;

protected:
    /// Called when the last owner has let go: deletes the object. Override to recycle it or to delete it later.
    virtual void NoMoreRef();

private:
    std::atomic<std::int32_t> mUseCount;
};

}  // namespace MLCore
