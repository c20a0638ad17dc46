#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore::platform {

/// Zero-terminated text between code page 1252 and the wide characters of BSTRs. Null is the empty text.
[[nodiscard]] MLCORE_API std::wstring WideText(const char* ansi);

/// A character that the code page lacks becomes '?', or on Windows the one that the system finds similar.
[[nodiscard]] MLCORE_API std::string AnsiText(const wchar_t* wide);

}  // namespace MLCore::platform
