#include <MLCore/platform/GlobalMemory.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

static_assert(kGlobalMoveable == GMEM_MOVEABLE && kGlobalZeroInit == GMEM_ZEROINIT);

void* GlobalBlockAlloc(std::size_t size, unsigned int flags) noexcept {
    if ((flags & ~kGlobalZeroInit) != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return GlobalAlloc(GMEM_MOVEABLE | flags, size);
}

void* GlobalBlockReAlloc(void* block, std::size_t size, unsigned int flags) noexcept {
    if ((flags & ~(kGlobalMoveable | kGlobalZeroInit)) != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return GlobalReAlloc(block, size, flags);
}

void* GlobalBlockLock(void* block) noexcept { return GlobalLock(block); }

bool GlobalBlockUnlock(void* block) noexcept { return GlobalUnlock(block) != 0; }

bool GlobalBlockFree(void* block) noexcept { return GlobalFree(block) == nullptr; }

std::size_t GlobalBlockSize(void* block) noexcept { return GlobalSize(block); }

}  // namespace MLCore::platform
