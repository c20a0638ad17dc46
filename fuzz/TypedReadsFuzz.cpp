// Typed reads and memory blocks of any bytes: the same however the stream lends its memory.
#include <MLCore/platform/GlobalMemory.h>

#include "Input.h"
#include "Streams.h"

namespace {

using namespace MLCore;
using namespace fuzz;
using namespace std::string_view_literals;

/// A block has the bytes after its size, or there is none; written again, it gives the same bytes.
std::string ReadBlock(CISTREAM& stream) {
    void* block = &stream;
    const auto failure = FailureOf([&] { stream.GetValue(block); });
    FUZZ_REQUIRE(failure == 0 ? block != &stream : failure == -110 && block == &stream);
    if (failure != 0) return "-110";
    CBUFFERSTREAM out;
    out.Open();
    out.SetValue(block);
    FUZZ_REQUIRE(out.GetSize() == 4 + platform::GlobalBlockSize(block) && platform::GlobalBlockFree(block));
    return BytesOf(out);
}

std::string ReadText(CISTREAM& stream, long length) {
    std::string text = "before";
    const auto failure = FailureOf([&] { stream.GetValue(text, length); });
    FUZZ_REQUIRE(failure == 0 ? text.size() == static_cast<std::size_t>(length) : failure == -110 && text == "before");
    return text;
}

std::string ReadBuffer(CISTREAM& stream, long length) {
    char buffer[256] = "";
    return std::to_string(FailureOf([&] { stream.GetValue(buffer, length); }).msg) +
           std::string(buffer, sizeof(buffer));
}

std::string ReadFlag(CISTREAM& stream) {
    int flag = 7;
    return std::to_string(FailureOf([&] { stream.GetValueBOOL(flag); }).msg) + std::to_string(flag);
}

std::string Do(CISTREAM& stream, unsigned what, unsigned number) {
    if (what < 9) return ReadTyped(stream, what, {-110});
    switch (what) {
        case 9:
        case 10:
            return ReadBlock(stream);
        case 11:
            return ReadText(stream, static_cast<long>(number) - 3);
        case 12:
            return ReadBuffer(stream, static_cast<long>(number) - 3);
        case 13:
            return ReadFlag(stream);
        case 14:
            return std::to_string(FailureOf([&] { stream.Skip(static_cast<long>(number) - 10); }).msg);
        default:
            return std::to_string((stream.Rewind(), 0));
    }
}

/// A large block is announced. Where no size is known, memory is taken for it, which is slow: most of these inputs are
/// left out.
bool IsTooSlow(std::string_view ahead) {
    return ahead.size() >= 4 && ahead.substr(2, 2) != "\0\0"sv && ahead[0] != 'L';
}

template <class SOURCE>
std::string Read(INPUT steps, const std::string& bytes) {
    SOURCE source(bytes);
    CISTREAM& stream = source.Stream();
    std::string all;
    while (!steps.IsEnd()) {
        const unsigned step = steps.Byte();
        const auto before = source.memory.GetPosition();
        const bool isBlock = step % 16 == 9 || step % 16 == 10;
        if (isBlock && IsTooSlow(std::string_view(bytes).substr(before))) continue;
        const std::string result = Do(stream, step % 16, step / 16 * 3);
        // After a block that is too short, streams that know their size stand after the block's size, others at their
        // end.
        if (isBlock && result == "-110") source.memory.SetPosition(std::min(before + 4, source.memory.GetSize()));
        all += result + (stream.IsEnd() != 0 ? 'E' : '_') + std::to_string(source.memory.GetPosition()) + '\n';
    }
    return all;
}

/// Whatever is read in whatever order is the same from lent memory, through the raw read, and where no size is known.
void Property(INPUT input) {
    const std::string steps = input.Text(16), bytes = input.Rest();
    const std::string expected = Read<PLAIN>(INPUT(steps), bytes);
    FUZZ_REQUIRE(Read<ASKED>(INPUT(steps), bytes) == expected);
    FUZZ_REQUIRE(Read<LENT>(INPUT(steps), bytes) == expected);
}

const TARGET kTarget("TypedReads", Property);

}  // namespace
