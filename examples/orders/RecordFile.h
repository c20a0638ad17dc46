/// Records in files: fields between ';', lines that end with CR LF, and the keys of the properties in the first line.
#pragma once

#include <MLCore/core/FrameworkException.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "Record.h"
#include "Rejects.h"

namespace orders {

/// Reads records line by line. A line ends where it ends, also between quotes, and has 1 MiB at most.
class RECORDREADER {
public:
    /// Opens the file and finds the columns, in whatever order they stand; what is no property is left out. Throws a
    /// std::runtime_error when a column is missing, unless the file is empty. The rejects are borrowed.
    RECORDREADER(const std::string& path, PROPERTIES properties, REJECTS& rejects);

    /// Sets the properties of `record` from the next line; false at the end. Lines of the wrong number of fields, or with a
    /// field that is no value, are rejected and passed over.
    [[nodiscard]] bool Read(CRECORD& record);
    /// Rejects the line that was read last.
    void Reject(const std::string& reason) { mRejects.Add(mFile, mFirstLine, mLine, reason); }

    /// How much of the file has been read.
    [[nodiscard]] int GetPercent() const;

private:
    void FindColumns(PROPERTIES properties);
    [[nodiscard]] std::vector<std::string> ReadLine();
    [[nodiscard]] std::string ReadLine(CRECORD& record);

    MLCore::CFILESTREAM mFile;
    MLCore::CCSVENCODER mEncoder;
    MLCore::CISTREAMDECORATORFIELD mFields;
    std::vector<const PROPERTY*> mColumns;  // null for one that is left out
    REJECTS& mRejects;
    LINE mFirstLine;
    LINE mLine;
};

/// Writes an array of records of that class to a new file.
void WriteRecords(const std::string& path, PROPERTIES properties, const MLCore::CARRAY& records);

/// Runs `action`. What fails in the library below it becomes a std::runtime_error "FILE: cannot be read", or whatever
/// `verb` says.
template <class ACTION>
auto ForFile(const std::string& path, const char* verb, ACTION action) {
    try {
        return action();
    } catch (const MLCore::FrameworkException&) {
        throw std::runtime_error(path + ": cannot be " + verb);
    }
}

}  // namespace orders
