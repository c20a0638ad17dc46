#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore {

/// Owns or borrows a movable memory block (MLCore/platform/GlobalMemory.h) and keeps it locked while its bytes are in
/// use. The memory streams keep their data in it.
///
/// While it is locked, the block may be larger than its size says, so that growing by small steps takes constant time
/// per byte on average. A caller who asks for the handle gets a block of exactly the size.
class MLCORE_API GLOBALBLOCK {
public:
    GLOBALBLOCK() noexcept = default;
    /// Takes `handle` (may be null), unlocked, with its bytes not in use yet. The destructor frees it only when `owns`.
    GLOBALBLOCK(void* handle, bool owns) noexcept;
    ~GLOBALBLOCK();
    GLOBALBLOCK(const GLOBALBLOCK&) = delete;
    GLOBALBLOCK& operator=(const GLOBALBLOCK&) = delete;

    /// The first byte while the block is locked, else null.
    [[nodiscard]] void* GetData() const noexcept { return mData; }
    /// The handle, of a block of exactly the size unless memory for that is missing.
    [[nodiscard]] void* GetHandle();
    [[nodiscard]] std::size_t GetSize() const noexcept { return mSize; }

    /// For how many bytes the block really has room while it is locked.
    [[nodiscard]] std::size_t GetRoom() const noexcept { return mRoom; }
    /// Makes the size at least `size`, for which the block has room.
    void Extend(std::size_t size) noexcept { mSize = size > mSize ? size : mSize; }
    /// Resizes the block and locks it; new bytes are not cleared. Size 0 frees it. Without memory it fails with
    /// kErrNull (-100) and leaves the block unchanged.
    void SetSize(std::size_t size);
    /// Asks the system how large the block is now: its owner may have cut it while it was not locked. Returns the size.
    std::size_t Refresh() noexcept;
    /// Locks the block unless it is locked. Fails with kErrNull when the system refuses.
    void Lock();
    /// Unlocks the block and gives it exactly `size` bytes. Where the system refuses, as it does for 0, the size stays.
    void Unlock(std::size_t size) noexcept;
    /// Unlocks the block and hands it to the caller.
    [[nodiscard]] void* Detach();

private:
    void Reallocate(std::size_t size);
    bool Resize(std::size_t room) noexcept;
    void Unlock() noexcept;

    void* mHandle = nullptr;
    void* mData = nullptr;
    std::size_t mSize = 0;
    std::size_t mRoom = 0;  // the block's real size
    bool mOwns = true;
};

inline void GLOBALBLOCK::SetSize(std::size_t size) {
    if (size != 0 && size <= mRoom && mData != nullptr && size >= mRoom / 2) {
        mSize = size;
    } else {
        Reallocate(size);
    }
}

}  // namespace MLCore
