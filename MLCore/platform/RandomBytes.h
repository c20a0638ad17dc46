#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>

namespace MLCore::platform {

/// Fills `size` bytes at `buffer` with random bytes from the system's cryptographic generator, suitable for keys.
///
/// \param buffer  may be null when `size` is 0.
/// \return true when all bytes are random; false on failure, with LastError() set and some bytes possibly changed.
[[nodiscard]] MLCORE_API bool RandomBytes(void* buffer, std::size_t size) noexcept;

}  // namespace MLCore::platform
