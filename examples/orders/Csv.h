/// Records of fields in a text file.
#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace orders {

/// Something in a file that cannot be read, with the line where it stands.
class DATAERROR : public std::runtime_error {
public:
    DATAERROR(long line, const std::string& text) : std::runtime_error(text), mLine(line) {}
    [[nodiscard]] long GetLine() const noexcept { return mLine; }

private:
    long mLine;
};

/// Reads records one by one: fields parted by ';', records ended by CR LF or LF, the last one perhaps by the end of the
/// file. A field in double quotes may hold separators, line ends and, doubled, quotes. Bytes are handed on as they are.
class CSVREADER {
public:
    /// Borrows the stream, which must have been opened as binary.
    explicit CSVREADER(std::istream& input) : mInput(input) {}

    /// False at the end. Throws a DATAERROR when a quote is missing or stands in the wrong place.
    [[nodiscard]] bool ReadRecord(std::vector<std::string>& fields);

    /// The line, from 1, on which the record read last began.
    [[nodiscard]] long GetLine() const noexcept { return mRecordLine; }

private:
    enum class END { Field, Record };

    [[nodiscard]] int Next();
    [[nodiscard]] bool SkipLineEnd(int character);
    [[nodiscard]] END ReadField(std::string& field);
    [[nodiscard]] END ReadQuotedField(std::string& field);

    std::istream& mInput;
    long mLine = 1;
    long mRecordLine = 1;
};

}  // namespace orders
