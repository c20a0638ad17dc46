#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore::platform {

/// Receives debugger output: a zero-terminated text, never null. May be called by several threads at once.
using DEBUGSINK = void (*)(const char* text);

/// Sends a text, as it stands and up to its first zero byte, to whoever watches the program run.
///
/// That is the debugger on Windows (`OutputDebugStringA`), and the standard error output on Linux, unless a sink is
/// set. Null is allowed and sends nothing. Failures are ignored, and LastError() is left as it was,
/// by the system's way.
MLCORE_API void DebugOutput(const char* text) noexcept;

/// Sends debugger output to `sink` from now on; null brings back the system's way.
///
/// \return the sink that was set before, or null. A sink must not let exceptions out.
MLCORE_API DEBUGSINK SetDebugSink(DEBUGSINK sink) noexcept;

}  // namespace MLCore::platform
