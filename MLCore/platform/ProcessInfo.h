#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore::platform {

/// The full path of the running program, with its file name; empty when the system does not report it, or on Windows
/// when the ANSI code page lacks a letter of it.
///
/// The program was started from this path. On Windows it is in the ANSI code page; on Linux it consists of the bytes of
/// the file system, with symbolic links resolved.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string ExecutablePath();

}  // namespace MLCore::platform
