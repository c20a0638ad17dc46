#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>
#include <string>

namespace MLCore::platform {

/// Zero-terminated text between code page 1252 and the wide characters of BSTRs. Null is the empty text.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::wstring WideText(const char* ansi);

/// The way back. A character that the code page lacks becomes '?', or on Windows the one that the system finds similar.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string AnsiText(const wchar_t* wide);

/// Converts `length` bytes, which may hold zeros, into at most as many wide characters at `wide` and makes no other copy:
/// for secrets. From the system's ANSI code page on Windows, from code page 1252 elsewhere.
///
/// \param length  1 to 0x7FFFFFFF
/// \return false on failure, with LastError() set.
[[nodiscard]] MLCORE_API bool WidenText(const char* ansi, std::size_t length, wchar_t* wide) noexcept;

}  // namespace MLCore::platform
