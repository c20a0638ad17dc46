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

/// Reads records line by line. A line end between quotes also ends the line. A line has 1 MiB at most.
class RECORDREADER {
public:
    /// Opens the file and finds the columns, in any order; other columns are ignored. Throws a
    /// std::runtime_error when a column is missing, unless the file is empty. The rejects are borrowed.
    RECORDREADER(const std::string& path, PROPERTIES properties, REJECTS& rejects);

    /// Sets the properties of `record` from the next line; false at the end. Lines with the wrong number of fields, or
    /// with a field that is not a value of its type, are rejected and skipped.
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
    std::vector<const PROPERTY*> mColumns;  // null: ignored
    REJECTS& mRejects;
    LINE mFirstLine;
    LINE mLine;
};

/// Writes an array of records of that class to a new file.
void WriteRecords(const std::string& path, PROPERTIES properties, const MLCore::CARRAY& records);

/// ": " and the text of a failure; "" when it has none, or is the system's, whose texts depend on its language.
[[nodiscard]] std::string ReasonOf(const MLCore::FrameworkException& failure);

/// Runs `action`. A failure of the library in it becomes a std::runtime_error "FILE: cannot be read" and its reason,
/// with `verb` for "read".
template <class ACTION>
auto ForFile(const std::string& path, const char* verb, ACTION action) {
    try {
        return action();
    } catch (const MLCore::FrameworkException& failure) {
        throw std::runtime_error(path + ": cannot be " + verb + ReasonOf(failure));
    }
}

}  // namespace orders
