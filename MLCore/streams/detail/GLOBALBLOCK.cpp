#include <MLCore/streams/detail/GLOBALBLOCK.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/GlobalMemory.h>

#include <algorithm>
#include <utility>

namespace MLCore {

GLOBALBLOCK::GLOBALBLOCK(void* handle, bool owns) noexcept
    : mHandle(handle), mSize(handle != nullptr ? platform::GlobalBlockSize(handle) : 0), mRoom(mSize), mOwns(owns) {}

GLOBALBLOCK::~GLOBALBLOCK() {
    if (mOwns) {
        Unlock();
        platform::GlobalBlockFree(mHandle);
    } else {
        Unlock(mSize);
    }
}

void* GLOBALBLOCK::GetHandle() {
    if (mRoom != mSize) {
        const bool wasLocked = mData != nullptr;
        Unlock();
        Resize(mSize);
        if (wasLocked) {
            Lock();
        }
    }
    return mHandle;
}

void GLOBALBLOCK::Reallocate(std::size_t size) {
    Unlock();
    if (size == 0) {
        platform::GlobalBlockFree(std::exchange(mHandle, nullptr));
        mSize = mRoom = 0;
        return;
    }
    const bool isRoomy = size > mRoom && mRoom != 0 && Resize(std::max(size, mRoom + mRoom / 2));
    const bool fits = isRoomy || Resize(size) || size <= mRoom;
    mSize = fits ? size : mSize;
    Lock();
    Require(fits && mHandle != nullptr, kErrNull, "no memory for a block of ", size, " bytes");
}

bool GLOBALBLOCK::Resize(std::size_t room) noexcept {
    void* const handle =
        mHandle == nullptr ? platform::GlobalBlockAlloc(room) : platform::GlobalBlockReAlloc(mHandle, room);
    if (handle == nullptr) {
        return false;
    }
    mHandle = handle;
    mRoom = room;
    return true;
}

std::size_t GLOBALBLOCK::Refresh() noexcept {
    mRoom = std::min(mRoom, mHandle != nullptr ? platform::GlobalBlockSize(mHandle) : 0);
    mSize = std::min(mSize, mRoom);
    return mSize;
}

void GLOBALBLOCK::Lock() {
    if (mData == nullptr && mRoom != 0) {
        mData = platform::GlobalBlockLock(mHandle);
        Require(mData != nullptr, kErrNull, "cannot lock a memory block of ", mRoom, " bytes");
    }
}

void GLOBALBLOCK::Unlock() noexcept {
    if (mData != nullptr) {
        platform::GlobalBlockUnlock(mHandle);
        mData = nullptr;
    }
}

void GLOBALBLOCK::Unlock(std::size_t size) noexcept {
    Unlock();
    if (size != mRoom && Resize(size)) {
        mSize = size;
    } else if (mRoom != mSize) {
        Resize(mSize);
    }
}

void* GLOBALBLOCK::Detach() {
    void* const handle = GetHandle();
    Unlock();
    mHandle = nullptr;
    mSize = mRoom = 0;
    return handle;
}

}  // namespace MLCore
