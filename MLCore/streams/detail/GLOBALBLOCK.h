#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore {

/// Owns a movable memory block (MLCore/platform/GlobalMemory.h), or borrows it, and keeps it locked while its bytes are in
/// use. What the memory streams keep their data in.
///
/// While it is locked it may be larger than it tells, so that growing by small steps takes constant time per byte on average;
/// whoever is given the handle gets a block of exactly the size told.
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
    /// The handle, of a block of exactly the size told unless memory for that is missing.
    [[nodiscard]] void* GetHandle();
    [[nodiscard]] std::size_t GetSize() const noexcept { return mSize; }

    /// How many bytes there really is room for while the block is locked.
    [[nodiscard]] std::size_t GetRoom() const noexcept { return mRoom; }
    /// Tells at least `size`, for which there is room.
    void Extend(std::size_t size) noexcept { mSize = size > mSize ? size : mSize; }
    /// Resizes the block and locks it; new bytes are not cleared. Size 0 frees it. Without memory it fails with -100 and
    /// stays as it was.
    void SetSize(std::size_t size) {
        if (size != 0 && size <= mRoom && mData != nullptr && size >= mRoom / 2) {
            mSize = size;
        } else {
            Reallocate(size);
        }
    }
    /// Looks how large the block is now: whose it is may have cut it while it was not locked. Tells the size.
    std::size_t Refresh() noexcept;
    /// Locks the block unless it is. Fails with -100 when the system refuses.
    void Lock();
    /// Unlocks the block and gives it exactly `size` bytes; when the system refuses, as it does for 0, the size stays.
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
    std::size_t mRoom = 0;  // what the block really has
    bool mOwns = true;
};

}  // namespace MLCore
