#include <MLCore/values/detail/SmallBlocks.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <new>

namespace MLCore {

namespace {

#if defined(__SANITIZE_ADDRESS__)
#define MLCORE_WATCHES_BLOCKS true
#elif defined(__has_feature)
#define MLCORE_WATCHES_BLOCKS __has_feature(address_sanitizer)
#else
#define MLCORE_WATCHES_BLOCKS false
#endif
// The sanitizer knows a block's end, and what is used after it was freed, only where it allocates itself.
constexpr bool kKeepsBlocks = !MLCORE_WATCHES_BLOCKS;

constexpr std::size_t kClasses = 3;
constexpr std::size_t kStacks = 16;

/// Free blocks of one class. Whoever takes the count has the shelf to himself until he puts a count back; who finds it
/// taken does not wait but goes to the heap.
struct alignas(64) SHELF {
    static constexpr unsigned kTaken = ~0U;

    unsigned Take() noexcept { return count.exchange(kTaken, std::memory_order_acquire); }
    void PutBack(unsigned blocksNow) noexcept { count.store(blocksNow, std::memory_order_release); }

    std::atomic<unsigned> count = 0;
    std::array<void*, 31> blocks = {};
};

constinit std::array<std::array<SHELF, kClasses>, kStacks> gShelves;

/// By the stack that the caller runs on, so that a thread mostly finds its own, and leaves nothing to be tidied at its
/// end.
SHELF& ShelfOf(std::size_t blockClass) noexcept {
    const char here = 0;
    const std::uint64_t megabyte = reinterpret_cast<std::uintptr_t>(&here) >> 20U;
    return gShelves[megabyte * 0x9E3779B97F4A7C15U >> 60U][blockClass];
}

/// Frees all blocks when the library is unloaded. The shelves stay taken, so that later blocks go to the heap.
struct CLEARANCE {
    CLEARANCE() = default;
    CLEARANCE(const CLEARANCE&) = delete;
    CLEARANCE& operator=(const CLEARANCE&) = delete;
    ~CLEARANCE() {
        for (std::array<SHELF, kClasses>& shelves : gShelves) {
            for (SHELF& shelf : shelves) {
                const unsigned count = shelf.Take();
                for (unsigned index = 0; count != SHELF::kTaken && index < count; ++index) {
                    ::operator delete(shelf.blocks[index]);
                }
            }
        }
    }
};
const CLEARANCE gClearance;

}  // namespace

void* AllocateBlock(std::size_t size) {
    const std::size_t blockClass = BlockClass(size);
    if (!kKeepsBlocks || blockClass >= kClasses) {
        return ::operator new(size);
    }
    SHELF& shelf = ShelfOf(blockClass);
    const unsigned count = shelf.Take();
    if (count - 1U < shelf.blocks.size()) {
        void* const block = shelf.blocks[count - 1];
        shelf.PutBack(count - 1);
        return block;
    }
    if (count == 0) {
        shelf.PutBack(0);
    }
    return ::operator new(kLeastBlock + 16 * blockClass);
}

void FreeBlock(void* block, std::size_t size) noexcept {
    const std::size_t blockClass = BlockClass(size);
    if (kKeepsBlocks && blockClass < kClasses) {
        SHELF& shelf = ShelfOf(blockClass);
        const unsigned count = shelf.Take();
        if (count < shelf.blocks.size()) {
            shelf.blocks[count] = block;
            shelf.PutBack(count + 1);
            return;
        }
        if (count != SHELF::kTaken) {
            shelf.PutBack(count);
        }
    }
    ::operator delete(block);
}

}  // namespace MLCore
