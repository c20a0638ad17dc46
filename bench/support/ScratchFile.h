#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace bench {

/// A file in the folder for temporary files, removed in the end.
class SCRATCHFILE {
public:
    explicit SCRATCHFILE(const char* name) : mPath((std::filesystem::temp_directory_path() / name).string()) {}
    ~SCRATCHFILE() { Remove(); }
    SCRATCHFILE(const SCRATCHFILE&) = delete;
    SCRATCHFILE& operator=(const SCRATCHFILE&) = delete;

    void Remove() const { std::filesystem::remove(mPath); }
    [[nodiscard]] const char* GetPath() const { return mPath.c_str(); }
    [[nodiscard]] std::int64_t GetSize() const { return static_cast<std::int64_t>(std::filesystem::file_size(mPath)); }

private:
    std::string mPath;
};

}  // namespace bench
