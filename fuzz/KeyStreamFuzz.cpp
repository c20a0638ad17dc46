// XML of elements: refused, or read, written and read again as the same.
#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>

#include <map>

#include "Input.h"
#include "Streams.h"

namespace {

using namespace MLCore;
using namespace fuzz;

struct ELEMENT {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::string text;
    std::vector<ELEMENT> children;
    bool operator==(const ELEMENT&) const = default;
};

void Write(CKEYWRITER& writer, const ELEMENT& element) {
    writer.BeginElement(element.name);
    for (const auto& [name, value] : element.attributes) writer.SetAttribute(name, value);
    if (!element.text.empty()) writer.SetText(element.text);
    for (const ELEMENT& child : element.children) Write(writer, child);
    writer.EndElement();
}

ELEMENT Read(CKEYREADER& reader) {
    ELEMENT element{reader.GetElementName(), {}, "", {}};
    reader.BeginElement(element.name);
    for (const char* const name : {"a", "b", "key", "type", "value"})
        if (reader.HasAttribute(name) != 0) element.attributes[name] = reader.GetAttribute(name);
    element.text = reader.GetText();
    while (reader.HasElement() != 0) element.children.push_back(Read(reader));
    reader.EndElement();
    return element;
}

struct RESULT {
    int failure = 0;
    ELEMENT element;
    unsigned long long position = 0;  // behind the document
    bool operator==(const RESULT&) const = default;
};

template <class SOURCE>
RESULT Read(const std::string& xml) {
    SOURCE source(xml);
    CXMLKEYREADER reader(source.Stream());
    RESULT result;
    result.failure = FailureOf([&] { result.element = Read(reader); });
    FUZZ_REQUIRE(result.failure == 0 || result.failure == 138);
    if (result.failure == 0) {
        FUZZ_REQUIRE(reader.HasElement() == 0);
        result.position = source.memory.GetPosition();
    }
    return result;
}

/// What is understood is the same from any stream, can be written, and comes back.
void Property(INPUT input) {
    const std::string xml = input.Rest();
    const RESULT result = Read<LENT>(xml);
    FUZZ_REQUIRE(Read<PLAIN>(xml) == result);
    if (result.failure != 0) return;
    CBUFFERSTREAM out;
    out.Open();
    CXMLKEYWRITER writer(out);
    Write(writer, result.element);
    const std::string own(static_cast<const char*>(out.GetBuffer()), out.GetSize());
    const RESULT again = Read<LENT>(own);
    FUZZ_REQUIRE(again.element == result.element && again.failure == 0 && again.position == own.size() - 1);
    // Nothing of it belongs to what stands behind, and nothing can be missing.
    FUZZ_REQUIRE(Read<LENT>(own.substr(0, own.size() - 2)).failure == 138);
    FUZZ_REQUIRE(Read<PLAIN>(xml.substr(0, result.position)) == result);
}

const TARGET kTarget("KeyStream", Property);

}  // namespace
