#include <MLCore/predicates/detail/NodeText.h>

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>

namespace MLCore {

void WriteAttributeElement(CKEYWRITER& writer, const char* element, const char* attribute, std::string_view value) {
    writer.BeginElement(element);
    writer.SetAttribute(attribute, value);
    writer.EndElement();
}

std::string ReadAttributeElement(CKEYREADER& reader, const char* element, const char* attribute) {
    reader.BeginElement(element);
    std::string value = reader.GetAttribute(attribute);
    reader.EndElement();
    return value;
}

}  // namespace MLCore
