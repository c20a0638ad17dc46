/// Memory for the contents of small values. Most live only for a moment, and the heap would take more time than their
/// use.
#pragma once

#include <cstddef>

namespace MLCore {

/// No block is smaller.
constexpr std::size_t kLeastBlock = 24;

/// A block of at least `size` bytes, aligned as operator new aligns. Throws std::bad_alloc.
[[nodiscard]] void* AllocateBlock(std::size_t size);
/// Any thread may free. `size` must be of the same BlockClass() as the size that was asked for.
void FreeBlock(void* block, std::size_t size) noexcept;

/// The blocks that are kept for reuse grow as those of common heaps do, so that none is wasted.
[[nodiscard]] constexpr std::size_t BlockClass(std::size_t size) noexcept {
    return size <= kLeastBlock ? 0 : (size - kLeastBlock + 15) / 16;
}

}  // namespace MLCore
