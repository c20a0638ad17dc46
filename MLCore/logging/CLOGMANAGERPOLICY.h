#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Lines go to the log file of the process, which is opened at the first: `2026-04-30 17:05:09 [name] text`, with the
/// local date and time.
struct MLCORE_API CLOGMANAGERPOLICY {
    /// Any thread may call it. A line feed inside the text ends a line there.
    ///
    /// \throws FrameworkException  the log file cannot be opened, once; see CLOGMANAGER.
    static void Write(const std::string& name, const std::string& text);
};

}  // namespace MLCore
