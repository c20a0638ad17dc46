#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore {

/// Owns a movable memory block (MLCore/platform/GlobalMemory.h), or borrows it, and keeps it locked while its bytes are in
/// use. What the memory streams keep their data in.
class MLCORE_API GLOBALBLOCK {
public:
    GLOBALBLOCK() noexcept = default;
    /// Takes `handle` (may be null), unlocked, with its bytes not in use yet. Freed at the end only when `owns`.
    GLOBALBLOCK(void* handle, bool owns) noexcept;
    ~GLOBALBLOCK();
    GLOBALBLOCK(const GLOBALBLOCK&) = delete;
    GLOBALBLOCK& operator=(const GLOBALBLOCK&) = delete;

    /// The first byte while the block is locked, else null.
    [[nodiscard]] void* GetData() const noexcept { return mData; }
    [[nodiscard]] void* GetHandle() const noexcept { return mHandle; }
    /// Exactly the size asked for.
    [[nodiscard]] std::size_t GetSize() const noexcept { return mSize; }

    /// Resizes the block and locks it; new bytes are not cleared. Size 0 frees it. Without memory it fails with -100 and
    /// stays as it was. Amortised O(1) per byte on systems where the block keeps slack.
    void SetSize(std::size_t size);
    /// Locks the block unless it is. Fails with -100 when the system refuses.
    void Lock();
    void Unlock() noexcept;
    /// Gives an unlocked block exactly `size` bytes; when the system refuses, as it does for 0, nothing changes.
    void Trim(std::size_t size) noexcept;
    /// Unlocks the block and hands it to the caller.
    [[nodiscard]] void* Detach() noexcept;

private:
    void* mHandle = nullptr;
    void* mData = nullptr;
    std::size_t mSize = 0;
    bool mOwns = true;
};

}  // namespace MLCore
