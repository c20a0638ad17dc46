#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>
#include <string>

namespace MLCore::platform {

/// Converts a zero-terminated text in code page 1252 to the wide characters of BSTRs. Null means the empty text.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::wstring WideText(const char* ansi);

/// Converts wide characters to code page 1252. A character that the code page lacks becomes '?', or on Windows a
/// character that the system considers similar. Null means the empty text.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string AnsiText(const wchar_t* wide);

/// Converts `length` bytes, which may hold zeros, into at most as many wide characters at `wide`, and makes no other
/// copy: for secrets. Converts from the system's ANSI code page on Windows, from code page 1252 elsewhere.
///
/// \param length  1 to 0x7FFFFFFF
/// \return false on failure, with LastError() set.
[[nodiscard]] MLCORE_API bool WidenText(const char* ansi, std::size_t length, wchar_t* wide) noexcept;

}  // namespace MLCore::platform
