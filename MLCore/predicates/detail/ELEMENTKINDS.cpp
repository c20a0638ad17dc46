#include <MLCore/predicates/detail/ELEMENTKINDS.h>

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/FailureChecks.h>

namespace MLCore {

CSHAREOBJECTPTR<COBJECT> ELEMENTKINDS::CreateFor(const std::string& element) const {
    const auto found = mClassNames.find(element);
    if (found == mClassNames.end()) {
        std::string known;
        for (const auto& [name, className] : mClassNames) {
            known += (known.empty() ? "" : ", ") + name;
        }
        FailWith(kErrValueType, "the element ", Quoted(element), " is not ", mWhat, ", wanted one of ", known);
    }
    return COBJECTFACTORY::GetInstance()->CreateObject(found->second.c_str());
}

void ELEMENTKINDS::FailClass(const COBJECT* created) const {
    FailWith(kErrValueType, "the object factory creates ", created != nullptr ? created->GetClassName() : "null",
             ", wanted ", mWhat);
}

}  // namespace MLCore
