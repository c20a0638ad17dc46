#include "Csv.h"

namespace orders {

namespace {

constexpr char kSeparator = ';';
constexpr char kQuote = '"';
constexpr int kEndOfFile = std::char_traits<char>::eof();

}  // namespace

int CSVREADER::Next() {
    const int character = mInput.rdbuf()->sbumpc();
    mLine += character == '\n' ? 1 : 0;
    return character;
}

// Whether the character ends the record: LF, the CR of a CR LF, or the end of the file.
bool CSVREADER::SkipLineEnd(int character) {
    if (character == '\r' && mInput.rdbuf()->sgetc() == '\n') {
        character = Next();
    }
    return character == '\n' || character == kEndOfFile;
}

CSVREADER::END CSVREADER::ReadField(std::string& field) {
    if (mInput.rdbuf()->sgetc() == kQuote) {
        return ReadQuotedField(field);
    }
    for (int character = Next(); character != kSeparator; character = Next()) {
        if (SkipLineEnd(character)) {
            return END::Record;
        }
        if (character == kQuote) {
            throw DATAERROR(mLine, "a quote inside a field that does not begin with one");
        }
        field += static_cast<char>(character);
    }
    return END::Field;
}

CSVREADER::END CSVREADER::ReadQuotedField(std::string& field) {
    const long line = mLine;
    static_cast<void>(Next());
    for (;;) {
        int character = Next();
        if (character == kEndOfFile) {
            throw DATAERROR(line, "a quote that is never closed");
        }
        if (character == kQuote) {
            character = Next();
            if (character == kSeparator) {
                return END::Field;
            }
            if (SkipLineEnd(character)) {
                return END::Record;
            }
            if (character != kQuote) {
                throw DATAERROR(mLine, "text behind a closing quote");
            }
        }
        field += static_cast<char>(character);
    }
}

bool CSVREADER::ReadRecord(std::vector<std::string>& fields) {
    fields.clear();
    mRecordLine = mLine;
    if (mInput.rdbuf()->sgetc() == kEndOfFile) {
        return false;
    }
    while (ReadField(fields.emplace_back()) == END::Field) {
    }
    return true;
}

}  // namespace orders
