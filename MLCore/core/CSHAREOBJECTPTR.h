#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <utility>

namespace MLCore {

/// The smart pointer of the library: holds one reference to an object of the shared class T, or null. T may be
/// incomplete where a holder is only declared.
///
///     CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = CCALENDARBANQUESTRATEGY::Create();  // the only owner
///     CSHAREOBJECTPTR<CCALENDARSTRATEGY> second = calendar;                             // two owners
///     calendar->SetOuvre(CDATE::Saturday, 1);
///
/// A holder converts to T*, so that it can be passed where a pointer is borrowed. Two mistakes therefore compile:
/// `delete holder`, and to keep the raw pointer of a temporary (`COBJECT* p = CORDER::Create();` dangles).
///
/// Holders are not synchronised: one holder belongs to one thread at a time. The object may be shared by threads.
template <class T>
class CSHAREOBJECTPTR {
public:
    CSHAREOBJECTPTR() noexcept = default;
    CSHAREOBJECTPTR(std::nullptr_t) noexcept {}
    /// Adds a reference: a raw pointer is never adopted silently. For a new object use AdoptObject().
    CSHAREOBJECTPTR(T* object) : mObject(object) { AddRef(); }
    CSHAREOBJECTPTR(const CSHAREOBJECTPTR& other) : CSHAREOBJECTPTR(other.mObject) {}
    CSHAREOBJECTPTR(CSHAREOBJECTPTR&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
    /// Holders of a derived class convert to holders of a base.
    template <class U>
    requires std::convertible_to<U*, T*> CSHAREOBJECTPTR(const CSHAREOBJECTPTR<U>& other)
        : CSHAREOBJECTPTR(static_cast<T*>(other.Get())) {}
    template <class U>
    requires std::convertible_to<U*, T*> CSHAREOBJECTPTR(CSHAREOBJECTPTR<U>&& other)
    noexcept : mObject(other.Release()) {}
    ~CSHAREOBJECTPTR() { ReleaseObject(mObject); }

    /// Holds `object` (may be null) instead: adds a reference to it, then releases the object held before. So an object
    /// that the old one owns survives. Nothing happens when `object` is already held.
    CSHAREOBJECTPTR& operator=(T* object) {
        if (object != mObject) {
            CSHAREOBJECTPTR fresh(object);
            std::swap(mObject, fresh.mObject);
        }
        return *this;
    }
    CSHAREOBJECTPTR& operator=(const CSHAREOBJECTPTR& other) { return *this = other.mObject; }
    template <class U>
    requires std::convertible_to<U*, T*> CSHAREOBJECTPTR& operator=(const CSHAREOBJECTPTR<U>& other) {
        return *this = static_cast<T*>(other.Get());
    }
    /// Takes the reference of `other` and leaves it null; the object held before is always released. A holder that is
    /// moved into itself is therefore null afterwards.
    CSHAREOBJECTPTR& operator=(CSHAREOBJECTPTR&& other) noexcept {
        T* const old = mObject;
        mObject = nullptr;
        if (this != &other) {
            mObject = std::exchange(other.mObject, nullptr);
        }
        ReleaseObject(old);
        return *this;
    }
    template <class U>
    requires std::convertible_to<U*, T*> CSHAREOBJECTPTR& operator=(CSHAREOBJECTPTR<U>&& other) noexcept {
        return *this = CSHAREOBJECTPTR(std::move(other));
    }

    /// Passes the pointer with its reference to the caller and leaves the holder null; the count does not change. This
    /// is not CSHAREOBJECT::Release().
    [[nodiscard]] T* Release() noexcept { return std::exchange(mObject, nullptr); }

    [[nodiscard]] T* Get() const noexcept { return mObject; }
    operator T*() const noexcept { return mObject; }
    T* operator->() const noexcept { return mObject; }
    T& operator*() const noexcept { return *mObject; }

    /// True when null.
    bool operator!() const noexcept { return mObject == nullptr; }
    /// Compares the identity of the objects, not their values.
    bool operator==(T* object) const noexcept { return mObject == object; }
    template <class U>
    bool operator==(const CSHAREOBJECTPTR<U>& other) const noexcept {
        return mObject == other.Get();
    }

private:
    void AddRef() const {
        if (mObject != nullptr) {
            mObject->AddRef();
        }
    }
    static void ReleaseObject(T* object) {
        if (object != nullptr) {
            object->Release();
        }
    }

    T* mObject = nullptr;
};

/// Wraps an object just created with `new` in a holder that takes over the creator's reference, so that its count is 1.
/// Every Create function returns such a holder.
template <class T>
[[nodiscard]] CSHAREOBJECTPTR<T> AdoptObject(T* created) {
    CSHAREOBJECTPTR<T> holder(created);
    if (created != nullptr) {
        created->Release();
    }
    return holder;
}

}  // namespace MLCore

/// Hashes the identity of the object held, as == compares it.
template <class T>
struct std::hash<MLCore::CSHAREOBJECTPTR<T>> {
    std::size_t operator()(const MLCore::CSHAREOBJECTPTR<T>& holder) const noexcept {
        return std::hash<T*>()(holder.Get());
    }
};
