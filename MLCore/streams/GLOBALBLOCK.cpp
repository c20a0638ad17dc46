#include <MLCore/streams/GLOBALBLOCK.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/platform/GlobalMemory.h>

#include <utility>

namespace MLCore {

GLOBALBLOCK::GLOBALBLOCK(void* handle, bool owns) noexcept
    : mHandle(handle), mSize(handle != nullptr ? platform::GlobalBlockSize(handle) : 0), mOwns(owns) {}

GLOBALBLOCK::~GLOBALBLOCK() {
    Unlock();
    if (mOwns) {
        platform::GlobalBlockFree(mHandle);
    }
}

void GLOBALBLOCK::SetSize(std::size_t size) {
    if (size == 0) {
        Unlock();
        platform::GlobalBlockFree(mHandle);
        mHandle = nullptr;
        mSize = 0;
        return;
    }
    void* handle = nullptr;
    if (mHandle == nullptr) {
        handle = platform::GlobalBlockAlloc(size);
    } else {
        Unlock();
        handle = platform::GlobalBlockReAlloc(mHandle, size);
    }
    if (handle != nullptr) {
        mHandle = handle;
        mSize = size;
    }
    Lock();
    FailNull(handle);
}

void GLOBALBLOCK::Lock() {
    if (mData == nullptr && mSize != 0) {
        mData = platform::GlobalBlockLock(mHandle);
        FailNull(mData);
    }
}

void GLOBALBLOCK::Unlock() noexcept {
    if (mData != nullptr) {
        platform::GlobalBlockUnlock(mHandle);
        mData = nullptr;
    }
}

void GLOBALBLOCK::Trim(std::size_t size) noexcept {
    void* const handle = size != mSize ? platform::GlobalBlockReAlloc(mHandle, size) : nullptr;
    if (handle != nullptr) {
        mHandle = handle;
        mSize = size;
    }
}

void* GLOBALBLOCK::Detach() noexcept {
    Unlock();
    mSize = 0;
    return std::exchange(mHandle, nullptr);
}

}  // namespace MLCore
