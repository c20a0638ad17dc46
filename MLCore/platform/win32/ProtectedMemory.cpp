#include <MLCore/platform/ProtectedMemory.h>

#include <MLCore/platform/WinTypes.h>

#include <wincrypt.h>

#include <dpapi.h>

#include <limits>

namespace MLCore::platform {

static_assert(kSealBlockSize == CRYPTPROTECTMEMORY_BLOCK_SIZE);

namespace {

bool IsSealable(std::size_t size) noexcept {
    return size % kSealBlockSize == 0 && size <= std::numeric_limits<DWORD>::max();
}

}  // namespace

void* AllocateSecret(std::size_t size) noexcept {
    if (size == 0 || !IsSealable(size)) {
        return nullptr;
    }
    void* const memory = VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (memory != nullptr) {
        VirtualLock(memory, size);  // a process may lock little: the secret is usable without
    }
    return memory;
}

void FreeSecret(void* memory, std::size_t size) noexcept {
    if (memory != nullptr) {
        WipeMemory(memory, size);
        VirtualFree(memory, 0, MEM_RELEASE);
    }
}

bool SealMemory(void* memory, std::size_t size, MEMORYSEAL&) noexcept {
    return IsSealable(size) && (size == 0 || CryptProtectMemory(memory, static_cast<DWORD>(size), 0) != 0);
}

bool OpenMemory(void* memory, std::size_t size, const MEMORYSEAL&) noexcept {
    return IsSealable(size) && (size == 0 || CryptUnprotectMemory(memory, static_cast<DWORD>(size), 0) != 0);
}

void WipeMemory(void* memory, std::size_t size) noexcept {
    if (size != 0) {
        SecureZeroMemory(memory, size);
    }
}

}  // namespace MLCore::platform
