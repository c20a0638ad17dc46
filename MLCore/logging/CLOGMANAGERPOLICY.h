#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore {

/// Writes lines to the log file of the process, with the local date and time: `2026-04-30 17:05:09 [name] text`. The
/// first line opens the file.
struct MLCORE_API CLOGMANAGERPOLICY {
    /// Any thread may call it. A line feed inside the text ends a line of the file.
    ///
    /// \throws FrameworkException  once, when the log file cannot be opened; see CLOGMANAGER.
    static void Write(const std::string& name, const std::string& text);
};

}  // namespace MLCore
