// Writes and reads a predicate tree of some ten thousand nodes as XML in memory.

#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CANDPREDICATE.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CORPREDICATE.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/text/CodePage1252.h>
#include <MLCore/values/CMEMARRAY.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Workload.h"

#if defined(MLCORE_HAVE_LIBXML2)
#include <libxml/xmlreader.h>
#include <libxml/xmlwriter.h>
#endif

namespace {

using namespace MLCore;
using namespace bench;

// An OR of so many branches of ten nodes each.
constexpr long kBranches = 1000;
constexpr std::size_t kNodes = 10 * kBranches + 1;

CSHAREOBJECTPTR<CPREDICATE> MakeBranch(long number) {
    const auto key = [](const char* name) { return CKEYEXPRESSION::Create(name); };
    const auto value = [](const CVALUE& constant) { return CVALUEEXPRESSION::Create(constant); };
    return CANDPREDICATE::Create(
        CGREATERPREDICATE::Create(key("order.amount"), value(static_cast<double>(number) / 8)),
        CBEGINSPREDICATE::Create(key("customer.name"), value("Ren\xE9 & " + std::to_string(number)),
                                 CVALUEOBJECT::ComparisonOption::CaseInsensitive),
        CEQUALPREDICATE::Create(key("order.quantity"), value(number)));
}

CSHAREOBJECTPTR<CPREDICATE> MakeTree() {
    const auto branches = CMEMARRAY::Create();
    for (long number = 0; number < kBranches; ++number) {
        branches->AddObject(MakeBranch(number));
    }
    return CORPREDICATE::Create(*branches);
}

/// What a program without predicates has in their place.
struct NODE {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<NODE> children;
};

NODE ReadNode(CKEYREADER& reader) {
    NODE node{reader.GetElementName(), {}, {}};
    reader.BeginElement(node.name);
    for (const char* const name : {"compType", "key", "type", "value"}) {
        if (reader.HasAttribute(name) != 0) {
            node.attributes.emplace_back(name, reader.GetAttribute(name));
        }
    }
    while (reader.HasElement() != 0) {
        node.children.push_back(ReadNode(reader));
    }
    reader.EndElement();
    return node;
}

std::int64_t CountOf(const NODE& node) {
    return std::accumulate(node.children.begin(), node.children.end(), std::int64_t{1},
                           [](std::int64_t sum, const NODE& child) { return sum + CountOf(child); });
}

class COUNTER : public CPREDICATEVISITOR {
public:
    int VisitPredicate(const CPREDICATE&) override { return Count(); }
    int VisitExpression(const CEXPRESSION&) override { return Count(); }
    std::int64_t count = 0;

private:
    int Count() {
        ++count;
        return 1;
    }
};

/// Of an XML text, without its declaration: attributes, and ends of elements.
std::int64_t MarksOf(std::string_view text) {
    text.remove_prefix(text.find('>'));
    return std::count(text.begin(), text.end(), '=') + std::count(text.begin(), text.end(), '/');
}

std::string_view TextOf(const CBUFFERSTREAM& stream) {
    return {static_cast<const char*>(stream.GetBuffer()), static_cast<std::size_t>(stream.GetWritePosition())};
}

void Write(const CPREDICATE& predicate, CBUFFERSTREAM& stream) {
    stream.Open();
    CXMLKEYWRITER writer(stream);
    predicate.DoWriteState(writer);
}

std::int64_t Read(std::string_view text) {
    CBUFFERSTREAM stream(static_cast<unsigned long>(text.size()), text.data());
    stream.Open();
    CXMLKEYREADER reader(stream);
    COUNTER counter;
    CPREDICATE::Create(reader)->Accept(counter);
    return counter.count;
}

void WriteByHand(const NODE& node, int depth, std::string& out) {
    (out += '\n').append(static_cast<std::size_t>(2 * depth), ' ') += '<';
    out += node.name;
    for (const auto& [name, value] : node.attributes) {
        ((out += ' ') += name) += "=\"";
        for (const char character : value) {
            character == '&' ? out += "&amp;" : out += character;
        }
        out += '"';
    }
    if (node.children.empty()) {
        out += "/>";
        return;
    }
    out += '>';
    for (const NODE& child : node.children) {
        WriteByHand(child, depth + 1, out);
    }
    ((out += "</") += node.name) += '>';
}

/// The least that a reader does: finds the tags.
std::int64_t ReadByHand(std::string_view text) {
    std::int64_t count = -1;  // the declaration
    for (std::size_t at = 0; (at = text.find('<', at)) != std::string_view::npos; ++at) {
        count += text[at + 1] != '/' ? 1 : 0;
    }
    return count;
}

#if defined(MLCORE_HAVE_LIBXML2)
const xmlChar* XmlOf(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

const char* TextOf(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

void WriteElement(xmlTextWriterPtr writer, const NODE& node) {
    xmlTextWriterStartElement(writer, XmlOf(node.name));
    for (const auto& [name, value] : node.attributes) {
        xmlTextWriterWriteAttribute(writer, XmlOf(name), XmlOf(value));
    }
    for (const NODE& child : node.children) {
        WriteElement(writer, child);
    }
    xmlTextWriterEndElement(writer);
}

/// Its texts are UTF-8 throughout.
std::int64_t WriteByLibxml(const NODE& node) {
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(), xmlBufferFree);
    const std::unique_ptr<xmlTextWriter, decltype(&xmlFreeTextWriter)> writer(xmlNewTextWriterMemory(buffer.get(), 0),
                                                                              xmlFreeTextWriter);
    xmlTextWriterSetIndent(writer.get(), 1);
    xmlTextWriterStartDocument(writer.get(), nullptr, "UTF-8", nullptr);
    WriteElement(writer.get(), node);
    xmlTextWriterEndDocument(writer.get());
    xmlTextWriterFlush(writer.get());
    return MarksOf(TextOf(xmlBufferContent(buffer.get())));
}

/// Stands on the start of an element, and afterwards on its end.
NODE ReadElement(xmlTextReaderPtr reader) {
    NODE node{TextOf(xmlTextReaderConstName(reader)), {}, {}};
    const bool isEmpty = xmlTextReaderIsEmptyElement(reader) == 1;
    while (xmlTextReaderMoveToNextAttribute(reader) == 1) {
        node.attributes.emplace_back(TextOf(xmlTextReaderConstName(reader)), TextOf(xmlTextReaderConstValue(reader)));
    }
    while (!isEmpty && xmlTextReaderRead(reader) == 1 && xmlTextReaderNodeType(reader) != XML_READER_TYPE_END_ELEMENT) {
        if (xmlTextReaderNodeType(reader) == XML_READER_TYPE_ELEMENT) {
            node.children.push_back(ReadElement(reader));
        }
    }
    return node;
}

std::int64_t ReadByLibxml(std::string_view text) {
    const std::unique_ptr<xmlTextReader, decltype(&xmlFreeTextReader)> reader(
        xmlReaderForMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, 0), xmlFreeTextReader);
    xmlTextReaderRead(reader.get());
    return CountOf(ReadElement(reader.get()));
}

NODE InUtf8(NODE node) {
    for (auto& attribute : node.attributes) {
        attribute.second = Utf8FromAnsi(attribute.second);
    }
    std::transform(node.children.begin(), node.children.end(), node.children.begin(), InUtf8);
    return node;
}
#endif

}  // namespace

int main(int argc, char** argv) {
    const auto tree = MakeTree();
    CBUFFERSTREAM stream;
    Write(*tree, stream);
    const std::string text(TextOf(stream));
    stream.Open();
    CXMLKEYREADER reader(stream);
    const NODE node = ReadNode(reader);

#if defined(MLCORE_HAVE_LIBXML2)
    const NODE utf8 = InUtf8(node);
#endif
    WORKLOAD("write a predicate as a key stream", 1, nullptr, kNodes)
        .Add("MLCore",
             [&](std::size_t) {
                 CBUFFERSTREAM written;
                 Write(*tree, written);
                 return MarksOf(TextOf(written));
             })
#if defined(MLCORE_HAVE_LIBXML2)
        .Add("libxml2", [&](std::size_t) { return WriteByLibxml(utf8); })
#endif
        .AddLimit("appending to a text", [&](std::size_t) {
            std::string written = "?>";
            WriteByHand(node, 0, written);
            return MarksOf(written);
        });
    WORKLOAD("read a predicate from a key stream", 1, nullptr, kNodes)
        .Add("MLCore", [&](std::size_t) { return Read(text); })
#if defined(MLCORE_HAVE_LIBXML2)
        .Add("libxml2", [&](std::size_t) { return ReadByLibxml(text); })
#endif
        .AddLimit("finding the tags", [&](std::size_t) { return ReadByHand(text); });
    return Run(argc, argv);
}
