#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore::platform {

/// Movable memory blocks that are identified by a handle. Streams and object values pass blocks of bytes in this way.
///
/// A handle is not an address: a block must be locked to access its bytes, and only an unlocked block may move. On
/// Windows these are the system's global blocks. On Linux the library manages them: it recognises and refuses a handle
/// that was never returned or has been freed. A block may have hidden reserve, so that growth by small steps stays
/// cheap; the reported size is always exactly the requested size.
///
/// After a failure LastError() returns the reason: 6 not a handle, 8 not enough memory, 87 an unsuitable size or flag.
/// All functions may be called from any thread; the users of a block must synchronise access to its bytes. The receiver
/// of a handle owns the block until it is freed.

/// Resizing may move a locked block; pointers from locking it are then invalid.
inline constexpr unsigned int kGlobalMoveable = 0x0002;

/// New bytes are 0; without this flag they are undefined.
inline constexpr unsigned int kGlobalZeroInit = 0x0040;

/// A new movable block of `size` bytes, unlocked.
///
/// \param size   0 is allowed: such a block has a handle and no bytes.
/// \param flags  0 or kGlobalZeroInit.
/// \return the handle, or null. Sizes above the machine's memory are refused immediately.
[[nodiscard]] MLCORE_API void* GlobalBlockAlloc(std::size_t size, unsigned int flags = 0) noexcept;

/// Resizes a block; the bytes up to the smaller of the two sizes are kept.
///
/// \param flags  any of kGlobalMoveable and kGlobalZeroInit.
/// \return the handle to use from now on, or null with the block unchanged: for a null handle, for size 0 without
///         kGlobalMoveable or on a locked block, and for a locked block that would have to move without
///         kGlobalMoveable.
[[nodiscard]] MLCORE_API void* GlobalBlockReAlloc(void* block, std::size_t size, unsigned int flags = 0) noexcept;

/// Adds a lock to a block and returns its first byte, which stays in place until the last lock is removed. Windows
/// counts 255 locks.
///
/// \return null, without a lock, when `block` is not a handle or has no bytes.
[[nodiscard]] MLCORE_API void* GlobalBlockLock(void* block) noexcept;

/// Removes one lock. A block that is not locked and a null handle are ignored.
/// \return true while the block is still locked.
MLCORE_API bool GlobalBlockUnlock(void* block) noexcept;

/// Frees a block, locked or not. Null is allowed.
/// \return true when it is freed or null, false when `block` is not a handle.
MLCORE_API bool GlobalBlockFree(void* block) noexcept;

/// The size of a block in bytes; 0 when `block` is not a handle or is null.
[[nodiscard]] MLCORE_API std::size_t GlobalBlockSize(void* block) noexcept;

}  // namespace MLCore::platform
