#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore::platform {

/// Memory for secrets, and secrets that are unreadable in memory while they are not needed.
///
/// Protection is within one process: a dump or a swap file shows nothing of a sealed secret. Whoever can run code in
/// the process can open it.

/// Sizes of sealed memory are multiples of this.
inline constexpr std::size_t kSealBlockSize = 16;

/// What belongs to one sealing of one piece of memory. Its owner keeps it beside the memory, unchanged, until it is
/// opened.
struct MEMORYSEAL {
    unsigned char nonce[24] = {};
};

/// Zeroed memory of `size` bytes, kept out of the swap file and, on Linux, out of core dumps, where the system allows
/// it.
///
/// \param size  a positive multiple of kSealBlockSize.
/// \return null for another size or without memory. Each piece takes whole pages of memory: it is meant for a few
/// secrets.
[[nodiscard]] MLCORE_API void* AllocateSecret(std::size_t size) noexcept;

/// Wipes and frees memory from AllocateSecret, of the same size. Null is allowed.
MLCORE_API void FreeSecret(void* memory, std::size_t size) noexcept;

/// Makes `size` bytes unreadable in place.
///
/// \param size  a multiple of kSealBlockSize.
/// \param seal  receives what OpenMemory needs. The same bytes look different after each sealing on Linux; Windows
///              uses its own protection with a key of the process and leaves the seal alone.
/// \return true when sealed; false, with the memory unchanged, when the size does not go or the system fails. Memory
///         that is sealed already must not be sealed again.
[[nodiscard]] MLCORE_API bool SealMemory(void* memory, std::size_t size, MEMORYSEAL& seal) noexcept;

/// Makes sealed memory readable again, with the seal and the size of its sealing.
///
/// \return true when opened; false, with the memory unchanged, when the size does not go or the system fails.
[[nodiscard]] MLCORE_API bool OpenMemory(void* memory, std::size_t size, const MEMORYSEAL& seal) noexcept;

/// Overwrites memory with zeros, also where the compiler sees that nobody reads it afterwards.
MLCORE_API void WipeMemory(void* memory, std::size_t size) noexcept;

}  // namespace MLCore::platform
