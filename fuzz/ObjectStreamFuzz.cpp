// Objects read from any bytes, of whatever classes these name.
#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/streams/CSERIALIZABLEOBJECT.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMWRITER.h>

#include "Input.h"
#include "Streams.h"

namespace {

using namespace MLCore;
using namespace fuzz;

/// A text and other objects, with their lengths and numbers.
class CTREE : public CSERIALIZABLEOBJECT {
    MLCORE_CLASS(CTREE, CSERIALIZABLEOBJECT)
public:
    void ReadState(CREADER& reader) override {
        unsigned short count = 0;
        short length = 0;
        reader >> count >> length;
        reader.GetValue(text, long{length});
        for (; count > 0; --count) children.push_back(reader.GetObject());
    }
    void WriteState(CWRITER& writer) const override {
        writer << static_cast<unsigned short>(children.size()) << static_cast<short>(text.size()) << text;
        for (const auto& child : children) writer.SetObject(child);
    }

private:
    ~CTREE() override = default;
    std::string text;
    std::vector<CSHAREOBJECTPTR<CSERIALIZABLEOBJECT>> children;
};

/// A number and one object, so that they nest deep.
class CNEST : public CSERIALIZABLEOBJECT {
    MLCORE_CLASS(CNEST, CSERIALIZABLEOBJECT)
public:
    void ReadState(CREADER& reader) override { reader >> number, child = reader.GetObject(); }
    void WriteState(CWRITER& writer) const override { writer << number, writer.SetObject(child); }

private:
    ~CNEST() override = default;
    char number = 0;
    CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> child;
};

MLCORE_REGISTER_CLASS(CTREE)
MLCORE_REGISTER_CLASS(CNEST)

/// The failure, or the bytes that the object is written as, which are those that it was read from.
template <class SOURCE>
std::string Read(const std::string& bytes) {
    SOURCE source(bytes);
    CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> object;
    const auto failure = FailureOf([&] { object = source.Stream().GetObject(); });
    FUZZ_REQUIRE(failure == 0 || (!object && (failure == -110 || failure == 123 || failure == 138)));
    if (failure != 0) return std::to_string(failure.msg);
    CBUFFERSTREAM out;
    out.Open();
    out.SetObject(object);
    const std::string written = BytesOf(out);
    FUZZ_REQUIRE(written == bytes.substr(0, source.memory.GetPosition()));
    return written;
}

void Property(INPUT input) {
    const std::string bytes = input.Rest(), expected = Read<LENT>(bytes);
    FUZZ_REQUIRE(Read<ASKED>(bytes) == expected && Read<PLAIN>(bytes) == expected);
}

const TARGET kTarget("ObjectStream", Property);

}  // namespace
