// XML of elements: refused, or read, written and read again as the same.
#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <keys/ElementTree.h>

#include "Input.h"
#include "Streams.h"

namespace {

using namespace MLCore;
using namespace fuzz;

using elementtree::TREE;

/// Of the attributes that are asked for.
constexpr const char* kNames[] = {"a", "b", "key", "type", "value"};

struct RESULT {
    support::FAILURE failure;
    TREE element;
    unsigned long long position = 0;  // behind the document
    bool operator==(const RESULT&) const = default;
};

template <class SOURCE>
RESULT Read(const std::string& xml) {
    SOURCE source(xml);
    CXMLKEYREADER reader(source.Stream());
    RESULT result;
    result.failure = FailureOf([&] { result.element = elementtree::Read(reader, kNames); });
    FUZZ_REQUIRE(result.failure == 138 || result.failure == support::FAILURE());
    if (result.failure == support::FAILURE()) {
        FUZZ_REQUIRE(reader.HasElement() == 0);
        result.position = source.memory.GetPosition();
    }
    return result;
}

/// A document is understood, or refused with the same text, from any stream; what is understood can be written and
/// comes back.
void Property(INPUT input) {
    const std::string xml = input.Rest();
    const RESULT result = Read<LENT>(xml);
    FUZZ_REQUIRE(Read<PLAIN>(xml) == result);
    if (result.failure != support::FAILURE()) return;
    CBUFFERSTREAM out;
    out.Open();
    CXMLKEYWRITER writer(out);
    Write(writer, result.element);
    const std::string own = BytesOf(out);
    const RESULT again = Read<LENT>(own);
    FUZZ_REQUIRE(again.element == result.element && again.failure == result.failure &&
                 again.position == own.size() - 1);
    // Nothing of it belongs to what stands behind, and nothing can be missing.
    FUZZ_REQUIRE(Read<LENT>(own.substr(0, own.size() - 2)).failure == 138);
    FUZZ_REQUIRE(Read<PLAIN>(xml.substr(0, result.position)) == result);
}

const TARGET kTarget("KeyStream", Property);

}  // namespace
