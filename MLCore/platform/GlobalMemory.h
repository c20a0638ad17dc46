#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore::platform {

/// Movable memory blocks known by a handle: the form in which streams and object values hand blocks of bytes to each
/// other.
///
/// A handle is not an address: a block is locked to get at its bytes, and only an unlocked block may move. On Windows
/// these are the system's global blocks. On Linux the library keeps them: a handle that was never given out or is freed
/// already is recognised and refused, a block may keep hidden slack so that growing by small steps stays cheap, and the
/// size told is always exactly the size asked for.
///
/// After a failure LastError() tells why: 6 for what is no handle, 8 for too little memory, 87 for a size or flag that
/// does not go. All functions may be called from any thread; one block's bytes are its users' affair. Whoever gets a
/// handle owns the block until it is freed.

/// Resizing may move a locked block; pointers got by locking are then invalid.
inline constexpr unsigned int kGlobalMoveable = 0x0002;

/// Bytes that are new are 0; without it they are whatever the memory held.
inline constexpr unsigned int kGlobalZeroInit = 0x0040;

/// A new movable block of `size` bytes, unlocked.
///
/// \param size   0 is allowed: such a block has a handle and no bytes.
/// \param flags  0 or kGlobalZeroInit.
/// \return the handle, or null. Sizes above the machine's memory are refused at once.
[[nodiscard]] MLCORE_API void* GlobalBlockAlloc(std::size_t size, unsigned int flags = 0) noexcept;

/// Resizes a block; the bytes up to the smaller of the two sizes are kept.
///
/// \param flags  any of kGlobalMoveable and kGlobalZeroInit.
/// \return the handle to use from now on, or null with the block unchanged: for a null handle, for size 0 without
///         kGlobalMoveable or on a locked block, and for a locked block that would have to move without
///         kGlobalMoveable.
[[nodiscard]] MLCORE_API void* GlobalBlockReAlloc(void* block, std::size_t size, unsigned int flags = 0) noexcept;

/// Locks a block once more and returns its first byte, which stays in place until the last lock is taken off.
/// Windows counts 255 locks.
///
/// \return null when `block` is no handle or has no bytes; it is not locked then.
[[nodiscard]] MLCORE_API void* GlobalBlockLock(void* block) noexcept;

/// Takes one lock off. A block that is not locked and a null handle are left alone.
/// \return true while the block is still locked.
MLCORE_API bool GlobalBlockUnlock(void* block) noexcept;

/// Frees a block, locked or not. Null is allowed.
/// \return true when it is freed or null, false when `block` is no handle.
MLCORE_API bool GlobalBlockFree(void* block) noexcept;

/// The size of a block in bytes; 0 when `block` is no handle or null.
[[nodiscard]] MLCORE_API std::size_t GlobalBlockSize(void* block) noexcept;

}  // namespace MLCore::platform
