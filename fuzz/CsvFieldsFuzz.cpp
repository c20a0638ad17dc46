// Fields that are written are read again, and any bytes give the same fields however the stream lends them.
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/COSTREAMDECORATORFIELD.h>

#include "Input.h"
#include "Streams.h"

namespace {

using namespace MLCore;
using namespace fuzz;
using ROWS = std::vector<std::vector<std::string>>;

CCSVENCODER encoder;

template <class SOURCE>
ROWS Read(const std::string& bytes) {
    SOURCE source(bytes);
    CISTREAMDECORATORFIELD fields(source.Stream(), ';', encoder);
    ROWS rows;
    for (; fields.IsEnd() == 0; fields.GetNextLine()) {
        rows.emplace_back();
        do {
            const auto before = source.memory.GetPosition();
            rows.back().emplace_back();
            fields.ReadNextValue(rows.back().back(), 32767);
            FUZZ_REQUIRE(source.memory.GetPosition() > before || fields.IsEndOfLine() != 0);
        } while (fields.IsEndOfLine() == 0);
        FUZZ_REQUIRE(rows.size() + rows.back().size() <= bytes.size() + 1);
    }
    return rows;
}

/// Written to a stream that lends its memory, or to one behind a decorator.
std::string Write(const ROWS& rows, bool isHidden) {
    CBUFFERSTREAM memory;
    memory.Open();
    COSTREAMDECORATOR hidden(memory);
    COSTREAMDECORATORFIELD fields(isHidden ? static_cast<COSTREAM&>(hidden) : memory, ';', encoder);
    for (const auto& row : rows) {
        for (const std::string& field : row) fields << field;
        fields.SetNextLine();
    }
    return BytesOf(memory);
}

/// Fields that are written are read again, with runs of double quotes as one. Fields read from any bytes are written
/// and read again unchanged, and are the same however the stream gives its bytes.
void Property(INPUT input) {
    ROWS rows(1), expected;
    const std::string bytes = input.Rest(40);
    INPUT texts(bytes);
    while (!texts.IsEnd()) {
        std::string field = texts.Text(20);
        if (rows.back().size() > 3) rows.emplace_back();
        std::erase_if(field, [](char c) { return c == '\r' || c == '\n'; });
        rows.back().push_back(field);
    }
    if (rows.back().empty()) rows.back().push_back("");
    expected = rows;
    for (auto& row : expected)
        for (std::string& field : row)
            field.erase(std::unique(field.begin(), field.end(), [](char a, char b) { return a == '"' && b == '"'; }),
                        field.end());
    const std::string written = Write(rows, false);
    FUZZ_REQUIRE(Write(rows, true) == written);
    FUZZ_REQUIRE(Read<LENT>(written) == expected);

    const ROWS read = Read<LENT>(bytes);
    FUZZ_REQUIRE(Read<ASKED>(bytes) == read && Read<PLAIN>(bytes) == read);
    FUZZ_REQUIRE(Read<LENT>(Write(read, false)) == read);
}

const TARGET kTarget("CsvFields", Property);

}  // namespace
