/// The same bytes in streams that are read in different ways, and must give the same.
#pragma once

#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>

#include <string>

namespace fuzz {

/// Lends its memory: it is of the library's own class.
struct LENT {
    explicit LENT(const std::string& bytes) : memory(static_cast<unsigned long>(bytes.size()), bytes.data()) {
        memory.Open();
    }
    MLCore::CISTREAM& Stream() { return memory; }
    MLCore::CBUFFERSTREAM memory;
};

/// Has a position, but is asked for every byte.
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

}  // namespace fuzz
