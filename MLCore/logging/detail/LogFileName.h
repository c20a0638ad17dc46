#pragma once

#include <string>

namespace MLCore {

/// The default log file of a program: its own path with the extension ".out". `C:\App\prog.exe` gives
/// `C:\App\prog.out`, /opt/my.app/prog gives /opt/my.app/prog.out. The empty text gives the empty text.
[[nodiscard]] inline std::string LogFileName(std::string program) {
    const std::string::size_type mark = program.find_last_of("./\\");
    if (mark != std::string::npos && program[mark] == '.') {
        program.resize(mark);
    }
    return program.empty() ? program : program.append(".out");
}

}  // namespace MLCore
