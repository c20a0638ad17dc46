#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace support {

/// A name for a file of the test's own, which is removed in the end if there is one.
struct TEMPFILE {
    TEMPFILE() = default;
    ~TEMPFILE() { Remove(); }
    TEMPFILE(const TEMPFILE&) = delete;
    TEMPFILE& operator=(const TEMPFILE&) = delete;

    void Remove() const {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    void SetContent(const std::string& content) const { std::ofstream(path, std::ios::binary) << content; }
    std::string GetContent() const {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }

    const std::string path =
        (std::filesystem::temp_directory_path() / ("MLCore" + std::to_string(std::random_device()()) + ".tmp"))
            .string();
};

}  // namespace support
