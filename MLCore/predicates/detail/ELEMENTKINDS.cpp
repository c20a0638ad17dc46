#include <MLCore/predicates/detail/ELEMENTKINDS.h>

#include <MLCore/core/COBJECTFACTORY.h>

namespace MLCore {

CSHAREOBJECTPTR<COBJECT> ELEMENTKINDS::CreateFor(CKEYREADER& reader) const {
    const std::string& element = reader.GetElementName();
    const auto found = mClassNames.find(element);
    if (found == mClassNames.end()) {
        std::string known;
        for (const auto& [name, className] : mClassNames) {
            known += (known.empty() ? "" : ", ") + name;
        }
        reader.FailHere("the element ", Quoted(element), " is not ", mWhat, ", wanted one of ", known);
    }
    return COBJECTFACTORY::GetInstance()->CreateObject(found->second.c_str());
}

void ELEMENTKINDS::FailClass(const CKEYREADER& reader, const COBJECT* created) const {
    reader.FailHere("the object factory creates ", created != nullptr ? created->GetClassName() : "null", ", wanted ",
                    mWhat);
}

}  // namespace MLCore
