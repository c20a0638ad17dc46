/// The same bytes in streams that are read in different ways and must give the same values.
#pragma once

#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include "Input.h"

namespace fuzz {

/// Lends its memory: it is of the library's own class.
struct LENT {
    explicit LENT(const std::string& bytes) : memory(static_cast<unsigned long>(bytes.size()), bytes.data()) {
        memory.Open();
    }
    MLCore::CISTREAM& Stream() { return memory; }
    MLCore::CBUFFERSTREAM memory;
};

/// Has a position, but lends nothing: every read is a call.
struct ASKED {
    explicit ASKED(const std::string& bytes) : memory(static_cast<unsigned long>(bytes.size()), bytes.data()) {
        memory.Open();
    }
    MLCore::CISTREAM& Stream() { return memory; }
    struct : MLCore::CBUFFERSTREAM {
        using CBUFFERSTREAM::CBUFFERSTREAM;
    } memory;
};

/// Shows no position and knows no size.
struct PLAIN : MLCore::CISTREAM {
    explicit PLAIN(const std::string& bytes) : CSTREAM(Read), CISTREAM(Read), asked(bytes) {}
    MLCore::CISTREAM& Stream() { return *this; }
    using CISTREAM::GetValue;
    int IsEnd() const override { return memory.IsEnd(); }
    long GetValue(void* buffer, long count) override { return memory.GetValue(buffer, count); }
    void Skip(long count) override { memory.Skip(count); }
    void Rewind() override { memory.Rewind(); }
    ASKED asked;
    MLCore::CBUFFERSTREAM& memory = asked.memory;
};

/// What was written to a stream.
inline std::string BytesOf(const MLCore::CBUFFERSTREAM& stream) {
    return std::string(static_cast<const char*>(stream.GetBuffer()), stream.GetSize());
}

/// Reads a value, and returns its bytes and the failure: none, or one of the expected ones.
template <class Value>
std::string ReadValue(MLCore::CISTREAM& stream, Value value, std::initializer_list<int> failures) {
    const auto failure = FailureOf([&] { stream.GetValue(value); });
    FUZZ_REQUIRE(failure == 0 || std::find(failures.begin(), failures.end(), failure) != failures.end());
    return std::string(reinterpret_cast<const char*>(&value), sizeof(value)) + std::to_string(failure.msg);
}

/// ReadValue() for the type of this number, 0 to 8.
inline std::string ReadTyped(MLCore::CISTREAM& stream, unsigned type, std::initializer_list<int> failures) {
    using namespace MLCore;
    switch (type) {
        case 0:
            return ReadValue(stream, 'b', failures);
        case 1:
            return ReadValue(stream, short{7}, failures);
        case 2:
            return ReadValue(stream, 7L, failures);
        case 3:
            return ReadValue(stream, 7UL, failures);
        case 4:
            return ReadValue(stream, 0.5, failures);
        case 5:
            return ReadValue(stream, CDATE(7, 8, 1999), failures);
        case 6:
            return ReadValue(stream, CTIME(1, 2, 3), failures);
        case 7:
            return ReadValue(stream, CDATETIME(CDATE(7, 8, 1999), CTIME(1, 2, 3)), failures);
        default:
            return ReadValue(stream, static_cast<unsigned short>(7), failures);
    }
}

}  // namespace fuzz
