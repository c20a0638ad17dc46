#pragma once

#include <MLCore/platform/Export.h>

#include <atomic>
#include <cstdint>

namespace MLCore {

/// A heap object with a count of its owners. The count starts at 1, which belongs to the creator; the object deletes
/// itself when the last owner releases it. Owners are normally CSHAREOBJECTPTR holders, which count automatically.
///
/// The count is atomic: each thread may hold and release its own references to one object. Everything else about an
/// object belongs to one thread at a time. An object must not be released more often than it is referenced, and a
/// destructor must not pass `this` to code that takes a new reference: both are undefined. Destructors, Release and
/// NoMoreRef must not throw.
class MLCORE_API CSHAREOBJECT {
protected:
    CSHAREOBJECT() noexcept { mUseCount.exchange(1); }
    /// A copy is a new object with its own count of 1.
    CSHAREOBJECT(const CSHAREOBJECT&) noexcept : CSHAREOBJECT() {}
    /// Assigning copies values, not owners.
    CSHAREOBJECT& operator=(const CSHAREOBJECT&) noexcept { return *this; }
    virtual ~CSHAREOBJECT();

public:
    /// Adds an owner and returns the new count.
    virtual unsigned long AddRef();
    /// Removes an owner and calls NoMoreRef() when it was the last. Returns the count *before* the call, on purpose: 1
    /// means that the object no longer exists. Callers must not conclude anything from other results.
    virtual unsigned long Release();
    /// The current count. Other threads may change it immediately: use it in tests and diagnostics, not for decisions.
    [[nodiscard]] virtual long GetUseCount() const;

protected:
    /// Called after the last owner has released the object: deletes it. Override to recycle it or to delete it later.
    virtual void NoMoreRef();

private:
    std::atomic<std::int32_t> mUseCount;
};

}  // namespace MLCore
