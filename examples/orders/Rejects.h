/// Lines that are refused.
#pragma once

#include <MLCore/streams/CFILESTREAM.h>

#include <ostream>
#include <string>
#include <vector>

namespace orders {

/// Where a line stands in its file, its end included.
struct LINE {
    unsigned long long begin = 0;
    unsigned long long end = 0;
    long number = 0;
};

/// Counts and logs the lines that are refused, and keeps them, byte by byte, in a file. It begins with the first line
/// of the file that they come from, so that it can be corrected and read in place of that file.
class REJECTS {
public:
    /// Without a path, the lines are only counted.
    explicit REJECTS(const std::string& path = {});

    void Add(MLCore::CFILESTREAM& source, const LINE& first, const LINE& line, const std::string& reason);
    /// Closes the file. Without rejects there is no file, and that of an earlier run is removed.
    void Close();

    [[nodiscard]] long GetCount() const noexcept { return mCount; }
    /// Writes the places of the first 20, the reasons, and the number of the others.
    void Write(std::ostream& out) const;

private:
    std::string mPath;
    MLCore::CFILESTREAM mFile;
    std::vector<std::string> mReasons;
    long mCount = 0;
};

}  // namespace orders
