// Ten million typed values written to a stream in memory and read back, beside the standard library. A plain vector
// that the bytes are appended to is the limit: no position, no failure, no virtual call.

#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>
#include <MLCore/streams/COSTREAMDECORATOR.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

constexpr std::size_t kCount = 10000000;
constexpr long kTextLength = 16;
const std::string kText = "sixteen bytes---";

// The values in turn: a number, a double, a text.
template <class SINK>
void WriteAll(SINK&& sink) {
    for (std::size_t i = 0; i < kCount; ++i) {
        switch (i % 3) {
            case 0:
                sink.Number(static_cast<std::int32_t>(i));
                break;
            case 1:
                sink.Double(static_cast<double>(i));
                break;
            default:
                sink.Text(kText);
                break;
        }
    }
}

template <class SOURCE>
std::int64_t ReadAll(SOURCE&& source) {
    std::int64_t sum = 0;
    std::string text;
    for (std::size_t i = 0; i < kCount; ++i) {
        switch (i % 3) {
            case 0:
                sum += source.Number();
                break;
            case 1:
                sum += static_cast<std::int64_t>(source.Double());
                break;
            default:
                source.Text(text);
                sum += text[i % kTextLength];
                break;
        }
    }
    return sum;
}

struct STREAMSINK {
    COSTREAM& stream;
    void Number(std::int32_t value) { stream.SetValue(long{value}); }
    void Double(double value) { stream.SetValue(value); }
    void Text(const std::string& value) { stream.SetValue(value); }
};

struct STREAMSOURCE {
    CISTREAM& stream;
    std::int64_t Number() {
        long value = 0;
        stream.GetValue(value);
        return value;
    }
    double Double() {
        double value = 0;
        stream.GetValue(value);
        return value;
    }
    void Text(std::string& value) { stream.GetValue(value, kTextLength); }
};

struct VECTORSINK {
    std::vector<char>& bytes;
    void Append(const void* data, std::size_t size) {
        const char* const first = static_cast<const char*>(data);
        bytes.insert(bytes.end(), first, first + size);
    }
    void Number(std::int32_t value) { Append(&value, sizeof value); }
    void Double(double value) { Append(&value, sizeof value); }
    void Text(const std::string& value) { Append(value.data(), value.size()); }
};

struct VECTORSOURCE {
    const char* at;
    template <class VALUE>
    VALUE Take() {
        VALUE value;
        std::memcpy(&value, at, sizeof value);
        at += sizeof value;
        return value;
    }
    std::int64_t Number() { return Take<std::int32_t>(); }
    double Double() { return Take<double>(); }
    void Text(std::string& value) {
        value.assign(at, kTextLength);
        at += kTextLength;
    }
};

struct STDSINK {
    std::ostream& stream;
    void Append(const void* data, std::size_t size) {
        stream.write(static_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    void Number(std::int32_t value) { Append(&value, sizeof value); }
    void Double(double value) { Append(&value, sizeof value); }
    void Text(const std::string& value) { Append(value.data(), value.size()); }
};

struct STDSOURCE {
    std::istream& stream;
    template <class VALUE>
    VALUE Take() {
        VALUE value;
        stream.read(reinterpret_cast<char*>(&value), sizeof value);
        return value;
    }
    std::int64_t Number() { return Take<std::int32_t>(); }
    double Double() { return Take<double>(); }
    void Text(std::string& value) {
        value.resize(kTextLength);
        stream.read(value.data(), kTextLength);
    }
};

struct PASSIN : CISTREAMDECORATOR {
    using CISTREAMDECORATOR::CISTREAMDECORATOR;
};
struct PASSOUT : COSTREAMDECORATOR {
    using COSTREAMDECORATOR::COSTREAMDECORATOR;
};

std::int64_t WriteVector(std::size_t) {
    std::vector<char> bytes;
    WriteAll(VECTORSINK{bytes});
    return static_cast<std::int64_t>(bytes.size());
}

std::int64_t WriteBuffer(std::size_t) {
    CBUFFERSTREAM stream;
    stream.Open();
    WriteAll(STREAMSINK{stream});
    return static_cast<std::int64_t>(stream.GetSize());
}

std::int64_t WriteDecorated(std::size_t) {
    CBUFFERSTREAM stream;
    stream.Open();
    PASSOUT decorator(stream);
    WriteAll(STREAMSINK{decorator});
    return static_cast<std::int64_t>(stream.GetSize());
}

std::int64_t WriteStd(std::size_t) {
    std::ostringstream stream;
    WriteAll(STDSINK{stream});
    return static_cast<std::int64_t>(stream.tellp());
}

std::vector<char> MakeBytes() {
    std::vector<char> bytes;
    WriteAll(VECTORSINK{bytes});
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    bench::WORKLOAD("write to a buffer", 1, nullptr, kCount)
        .Add("MLCore", WriteBuffer)
        .Add("std::vector", WriteVector)
        .Add("std::ostringstream", WriteStd);
    bench::WORKLOAD("write under a decorator", 1, nullptr, kCount)
        .Add("MLCore", WriteDecorated)
        .Add("std::vector", WriteVector)
        .Add("std::ostringstream", WriteStd);

    const std::vector<char> bytes = MakeBytes();
    CBUFFERSTREAM ours(static_cast<unsigned long>(bytes.size()), bytes.data());
    PASSIN decorator(ours);
    std::istringstream peer(std::string(bytes.begin(), bytes.end()));
    const auto readStd = [&peer](std::size_t) {
        peer.seekg(0);
        return ReadAll(STDSOURCE{peer});
    };
    const auto readVector = [&bytes](std::size_t) { return ReadAll(VECTORSOURCE{bytes.data()}); };
    bench::WORKLOAD("read from a buffer", 1, nullptr, kCount)
        .Add("MLCore",
             [&ours](std::size_t) {
                 ours.Open();
                 return ReadAll(STREAMSOURCE{ours});
             })
        .AddLimit("a loop of memcpy", readVector)
        .Add("std::istringstream", readStd);
    bench::WORKLOAD("read under a decorator", 1, nullptr, kCount)
        .Add("MLCore",
             [&decorator](std::size_t) {
                 decorator.Open();
                 return ReadAll(STREAMSOURCE{decorator});
             })
        .AddLimit("a loop of memcpy", readVector)
        .Add("std::istringstream", readStd);
    return bench::Run(argc, argv);
}
