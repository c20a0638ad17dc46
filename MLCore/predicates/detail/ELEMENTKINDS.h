#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYSERIALIZABLE.h>

#include <initializer_list>
#include <map>
#include <string>
#include <utility>

namespace MLCore {

/// Which class reads which element of a key stream: names to names of the object factory.
class ELEMENTKINDS {
public:
    ELEMENTKINDS(std::initializer_list<std::pair<const std::string, std::string>> kinds) : mClassNames(kinds) {}

    /// A new object of the class for the element that the reader stands on, which then reads it. Fails with 138 for an
    /// unknown element, and for a class that is no Base.
    template <class Base>
    [[nodiscard]] CSHAREOBJECTPTR<Base> Create(CKEYREADER& reader) const {
        const auto found = mClassNames.find(reader.GetElementName());
        if (found == mClassNames.end()) {
            FailOSErr(kErrValueType);
        }
        const CSHAREOBJECTPTR<COBJECT> created = COBJECTFACTORY::GetInstance()->CreateObject(found->second.c_str());
        const CSHAREOBJECTPTR<Base> object(dynamic_cast<Base*>(created.Get()));
        if (!object) {
            FailOSErr(kErrValueType);
        }
        object->DoInitState(reader);
        return object;
    }

private:
    std::map<std::string, std::string> mClassNames;
};

}  // namespace MLCore
