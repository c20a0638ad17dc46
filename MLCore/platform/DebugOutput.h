#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore::platform {

/// Receives debugger output: a zero-terminated text, never null. Several threads may call it concurrently.
using DEBUGSINK = void (*)(const char* text);

/// Sends a text, unchanged and up to its first zero byte, to the debugger on Windows (`OutputDebugStringA`), to the
/// standard error output on Linux, or to a sink if one is set.
///
/// Null is allowed and sends nothing. Failures are ignored. Without a sink, LastError() does not change.
MLCORE_API void DebugOutput(const char* text) noexcept;

/// Sends debugger output to `sink` from now on; null restores the system's output. A sink must not throw.
///
/// \return the sink that was set before, or null.
MLCORE_API DEBUGSINK SetDebugSink(DEBUGSINK sink) noexcept;

}  // namespace MLCore::platform
