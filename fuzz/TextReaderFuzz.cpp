// Lines, fields and values of text: the same however the stream lends its memory.
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>

#include "Input.h"
#include "Streams.h"

namespace {

using namespace MLCore;
using namespace fuzz;

CCSVENCODER encoder;

/// Does one operation and returns its result.
std::string Do(CISTREAMDECORATORTEXT& stream, unsigned what, unsigned number) {
    std::string text = "before";
    char buffer[33] = "";
    if (what >= 6 && what < 14) return ReadTyped(stream, what - 6, {138, -110});
    switch (what) {
        case 0:
            stream.ReadLine(text);
            return text;
        case 1:
            stream.GetNextLine();
            return "";
        case 2:
            stream.ClearEndOfLine();
            return "";
        case 3:
            stream.GetValue(text, static_cast<long>(number));
            return text;
        case 4:
            stream.GetValue(buffer, static_cast<long>(number % 32));
            return buffer;
        case 5:
            text.resize(number);
            text.resize(
                static_cast<std::size_t>(stream.GetValue(static_cast<void*>(text.data()), static_cast<long>(number))));
            return text;
        case 14:
            stream.Rewind();
            return "";
        default:
            return std::to_string(FailureOf([&] { stream.Skip(static_cast<long>(number) - 5); }).msg);
    }
}

template <class SOURCE>
std::string Read(INPUT steps, bool hasFields, const std::string& bytes) {
    SOURCE source(bytes);
    CISTREAMDECORATORTEXT lines(source.Stream());
    CISTREAMDECORATORFIELD fields(source.Stream(), ';', encoder);
    CISTREAMDECORATORTEXT& stream = hasFields ? fields : lines;
    std::string all;
    while (!steps.IsEnd()) {
        const unsigned step = steps.Byte();
        all += Do(stream, step % 16, step / 16 * 3);
        all += '|' + std::to_string(source.memory.GetPosition()) + (stream.IsEnd() != 0 ? 'E' : '_') +
               (stream.IsEndOfLine() != 0 ? 'L' : '_') + '\n';
        FUZZ_REQUIRE(source.memory.GetPosition() <= bytes.size());
    }
    return all;
}

/// Whatever is read in whatever order is the same from a window, from blocks, and byte by byte.
void Property(INPUT input) {
    const bool hasFields = input.Below(2) != 0;
    const std::string steps = input.Text(12), bytes = input.Rest(100);
    const std::string expected = Read<PLAIN>(INPUT(steps), hasFields, bytes);
    FUZZ_REQUIRE(Read<ASKED>(INPUT(steps), hasFields, bytes) == expected);
    FUZZ_REQUIRE(Read<LENT>(INPUT(steps), hasFields, bytes) == expected);
}

const TARGET kTarget("TextReader", Property);

}  // namespace
