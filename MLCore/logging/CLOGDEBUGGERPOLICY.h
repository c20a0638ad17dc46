#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Sends lines to the debugger on Windows, to the standard error output on Linux, or to a sink
/// (platform/DebugOutput.h). The name is ignored.
struct MLCORE_API CLOGDEBUGGERPOLICY {
    /// Sends the text up to its first zero byte, then CR LF. Any thread may call it; lines of several threads do not
    /// mix. A sink must not log to this policy.
    static void Write(const std::string& name, const std::string& text);
};

}  // namespace MLCore
