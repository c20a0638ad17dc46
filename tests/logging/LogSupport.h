#pragma once

#include <MLCore/logging/CLOGMANAGER.h>

#include <fstream>
#include <string>
#include <vector>

#include "support/TempFile.h"

namespace support {

/// The lines of a log file without their date and time.
inline std::vector<std::string> LinesOf(const std::string& path) {
    constexpr std::size_t kTimestamp = 20;
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line.size() > kTimestamp ? line.substr(kTimestamp) : line);
    }
    return lines;
}

/// A log file of the test's own; in the end the manager is as it was at the start of the program.
struct LOGFILE : TEMPFILE {
    LOGFILE() { MLCore::CLOGMANAGER::SetLogFile(path.c_str()); }
    ~LOGFILE() {
        MLCore::CLOGMANAGER::SetLogFile(nullptr);
        MLCore::CLOGMANAGER::SetLevel(MLCore::CLOGMANAGER::Level::INF);
        MLCore::CLOGMANAGER::SetAutoFlush(1);
        MLCore::CLOGMANAGER::Enable(1);
    }

    [[nodiscard]] std::vector<std::string> GetLines() const { return LinesOf(path); }
    /// Its content with the line ends of Linux.
    [[nodiscard]] std::string GetText() const {
        std::string text = GetContent();
        std::erase(text, '\r');
        return text;
    }
};

}  // namespace support
