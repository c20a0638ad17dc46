#include <MLCore/platform/GlobalMemory.h>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>
#include <new>
#include <unordered_map>

namespace MLCore::platform {

namespace {

struct BLOCK {
    void* data = nullptr;      ///< null when the capacity is 0
    std::size_t size = 0;      ///< what was asked for
    std::size_t capacity = 0;  ///< size and hidden slack
    std::size_t lockCount = 0;
};

/// All blocks of the process. A handle is a number that is never given out twice, so a stale one is always recognised.
struct BLOCKTABLE {
    std::mutex mutex;
    std::unordered_map<std::uintptr_t, BLOCK> blocks;
    std::uintptr_t lastHandle = 0;

    BLOCK* Find(void* handle) noexcept {
        const auto found = blocks.find(reinterpret_cast<std::uintptr_t>(handle));
        if (found == blocks.end()) {
            errno = EBADF;
            return nullptr;
        }
        return &found->second;
    }
};

/// Lives until the process ends: objects that are destroyed late may still free their blocks.
BLOCKTABLE& Table() noexcept {
    alignas(BLOCKTABLE) static std::byte storage[sizeof(BLOCKTABLE)];
    static BLOCKTABLE& table = *new (storage) BLOCKTABLE;
    return table;
}

/// The system promises more memory than it has and ends the process that uses it, so the library asks before. If the
/// system does not report its memory, nothing is refused.
std::size_t PhysicalMemory() noexcept {
    static const std::size_t bytes = [] {
        const long pages = sysconf(_SC_PHYS_PAGES);
        const long pageSize = sysconf(_SC_PAGESIZE);
        return pages > 0 && pageSize > 0 ? static_cast<std::size_t>(pages) * static_cast<std::size_t>(pageSize)
                                         : std::numeric_limits<std::size_t>::max();
    }();
    return bytes;
}

/// Gives the block room for exactly `capacity` bytes; false when there is no memory.
bool Reserve(BLOCK& block, std::size_t capacity) noexcept {
    if (capacity == 0) {
        std::free(block.data);
        block.data = nullptr;
    } else {
        void* const data = std::realloc(block.data, capacity);
        if (data == nullptr) {
            return false;
        }
        block.data = data;
    }
    block.capacity = capacity;
    return true;
}

/// Half as much again as before, so that a block grown by small steps is copied a number of times that grows as the
/// logarithm of its size.
bool Grow(BLOCK& block, std::size_t size) noexcept {
    const std::size_t roomy = std::min(block.capacity + block.capacity / 2, PhysicalMemory());
    return (roomy > size && Reserve(block, roomy)) || Reserve(block, size);
}

}  // namespace

void* GlobalBlockAlloc(std::size_t size, unsigned int flags) noexcept {
    if ((flags & ~kGlobalZeroInit) != 0) {
        errno = EINVAL;
        return nullptr;
    }
    BLOCK block{nullptr, size, size, 0};
    if (size > PhysicalMemory()) {
        errno = ENOMEM;
        return nullptr;
    }
    if (size != 0) {
        block.data = (flags & kGlobalZeroInit) != 0 ? std::calloc(size, 1) : std::malloc(size);
        if (block.data == nullptr) {
            errno = ENOMEM;
            return nullptr;
        }
    }
    try {
        BLOCKTABLE& table = Table();
        const std::lock_guard guard(table.mutex);
        table.blocks.emplace(table.lastHandle + 1, block);
        return reinterpret_cast<void*>(++table.lastHandle);
    } catch (...) {
        std::free(block.data);
        errno = ENOMEM;
        return nullptr;
    }
}

void* GlobalBlockReAlloc(void* handle, std::size_t size, unsigned int flags) noexcept {
    BLOCKTABLE& table = Table();
    const std::lock_guard guard(table.mutex);
    BLOCK* const block = table.Find(handle);
    if (block == nullptr) {
        return nullptr;
    }
    const bool isLocked = block->lockCount != 0;
    const bool mayMove = !isLocked || (flags & kGlobalMoveable) != 0;
    const bool mayEmpty = !isLocked && (flags & kGlobalMoveable) != 0;
    if ((flags & ~(kGlobalMoveable | kGlobalZeroInit)) != 0 || (size == 0 && !mayEmpty)) {
        errno = EINVAL;
        return nullptr;
    }
    if (size > PhysicalMemory() || (size > block->capacity && !(mayMove && Grow(*block, size)))) {
        errno = ENOMEM;
        return nullptr;
    }
    if (size < block->capacity / 2 && mayMove) {
        Reserve(*block, size);  // giving memory back may fail: the block only keeps more slack then
    }
    if (size > block->size && (flags & kGlobalZeroInit) != 0) {
        std::memset(static_cast<unsigned char*>(block->data) + block->size, 0, size - block->size);
    }
    block->size = size;
    return handle;
}

void* GlobalBlockLock(void* handle) noexcept {
    BLOCKTABLE& table = Table();
    const std::lock_guard guard(table.mutex);
    BLOCK* const block = table.Find(handle);
    if (block == nullptr) {
        return nullptr;
    }
    if (block->size == 0) {
        errno = EINVAL;
        return nullptr;
    }
    ++block->lockCount;
    return block->data;
}

bool GlobalBlockUnlock(void* handle) noexcept {
    BLOCKTABLE& table = Table();
    const std::lock_guard guard(table.mutex);
    BLOCK* const block = table.Find(handle);
    if (block == nullptr || block->lockCount == 0) {
        return false;
    }
    return --block->lockCount != 0;
}

bool GlobalBlockFree(void* handle) noexcept {
    if (handle == nullptr) {
        return true;
    }
    BLOCKTABLE& table = Table();
    const std::lock_guard guard(table.mutex);
    BLOCK* const block = table.Find(handle);
    if (block == nullptr) {
        return false;
    }
    std::free(block->data);
    table.blocks.erase(reinterpret_cast<std::uintptr_t>(handle));
    return true;
}

std::size_t GlobalBlockSize(void* handle) noexcept {
    BLOCKTABLE& table = Table();
    const std::lock_guard guard(table.mutex);
    const BLOCK* const block = table.Find(handle);
    return block == nullptr ? 0 : block->size;
}

}  // namespace MLCore::platform
