#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore::platform {

/// The full path of the program that runs, with its file name; empty when the system does not tell it, or on Windows the
/// ANSI code page lacks a letter of it.
///
/// The path is what the program was started from. On Windows it is in the ANSI code page; on Linux it is the bytes of
/// the file system, with symbolic links resolved.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string ExecutablePath();

}  // namespace MLCore::platform
