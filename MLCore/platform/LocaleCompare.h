#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore::platform {

/// Compares two texts with the system's locale rules, without regard to case. Neither may be null.
///
/// \return true when the system has such rules; `order` is then -1, 0 or 1. Linux has none for the library's code page,
///         whatever the locale of the process: false, with `order` unchanged.
[[nodiscard]] MLCORE_API bool SystemCompareNoCase(const char* left, const char* right, short& order) noexcept;

}  // namespace MLCore::platform
