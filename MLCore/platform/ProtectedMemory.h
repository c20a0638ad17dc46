#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore::platform {

/// Memory for secrets, and functions that make secrets unreadable in memory while they are not needed.
///
/// A dump or a swap file shows nothing of a sealed secret. But code that runs in the process can open it.

/// Sizes of sealed memory must be multiples of this.
inline constexpr std::size_t kSealBlockSize = 16;

/// Belongs to one sealing of one piece of memory. The owner of the memory must keep it unchanged until the memory is
/// opened.
struct MEMORYSEAL {
    unsigned char nonce[24] = {};
};

/// Zeroed memory of `size` bytes. If the system allows it, the memory is kept out of the swap file and, on Linux, out
/// of core dumps. Each piece takes whole pages: the function is meant for a few secrets.
///
/// \param size  a positive multiple of kSealBlockSize.
/// \return null for another size or without memory.
[[nodiscard]] MLCORE_API void* AllocateSecret(std::size_t size) noexcept;

/// Wipes and frees memory from AllocateSecret. `size` must be the same. Null is allowed.
MLCORE_API void FreeSecret(void* memory, std::size_t size) noexcept;

/// Makes `size` bytes unreadable in place.
///
/// \param size  a multiple of kSealBlockSize.
/// \param seal  receives the data that OpenMemory needs. On Linux the same bytes look different after each sealing.
///              Windows uses its own protection with a key of the process and leaves the seal unchanged.
/// \return true when sealed; false, with the memory unchanged, for another size or when the system fails. Sealed memory
///         must not be sealed again.
[[nodiscard]] MLCORE_API bool SealMemory(void* memory, std::size_t size, MEMORYSEAL& seal) noexcept;

/// Makes sealed memory readable again. The seal and the size must be those of the sealing.
///
/// \return true when opened; false, with the memory unchanged, for another size or when the system fails.
[[nodiscard]] MLCORE_API bool OpenMemory(void* memory, std::size_t size, const MEMORYSEAL& seal) noexcept;

/// Overwrites memory with zeros, also when the compiler knows that nothing reads it afterwards.
MLCORE_API void WipeMemory(void* memory, std::size_t size) noexcept;

}  // namespace MLCore::platform
