#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Lines go to whoever watches the program run: the debugger on Windows, the standard error output on Linux, or a sink
/// (platform/DebugOutput.h). The name is not used.
struct MLCORE_API CLOGDEBUGGERPOLICY {
    /// Sends the text up to its first zero byte, then a CR LF. Any thread may call it; lines of threads do not mix. A sink
    /// must not log to it.
    static void Write(const std::string& name, const std::string& text);
};

}  // namespace MLCore
