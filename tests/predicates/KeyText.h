/// Predicates and expressions to and from the text of a key stream.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/keys/CKEYSERIALIZABLE.h>
#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/streams/CBUFFERSTREAM.h>

#include <string>
#include <string_view>

namespace predicates_test {

inline std::string Written(const MLCore::CKEYSERIALIZABLE& tree) {
    MLCore::CBUFFERSTREAM buffer;
    buffer.Open();
    MLCore::CXMLKEYWRITER writer(buffer);
    tree.DoWriteState(writer);
    return std::string(static_cast<const char*>(buffer.GetBuffer()), buffer.GetSize());
}

template <class Class>
MLCore::CSHAREOBJECTPTR<Class> Read(std::string_view text) {
    MLCore::CBUFFERSTREAM buffer(static_cast<unsigned long>(text.size()), text.data());
    buffer.Open();
    MLCore::CXMLKEYREADER reader(buffer);
    return Class::Create(reader);
}

}  // namespace predicates_test
