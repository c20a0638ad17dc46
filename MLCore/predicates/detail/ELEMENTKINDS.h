#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/keys/CKEYREADER.h>

#include <initializer_list>
#include <map>
#include <string>
#include <utility>

namespace MLCore {

/// Which class reads which element of a key stream: element names to names of the object factory.
class ELEMENTKINDS {
public:
    /// `what` is what the elements are, with its article, for the texts of failures: "a predicate".
    ELEMENTKINDS(const char* what, std::initializer_list<std::pair<const std::string, std::string>> kinds)
        : mWhat(what), mClassNames(kinds) {}

    /// Creates an object of the class for the element that the reader stands on, and lets it read the element. Fails
    /// with kErrValueType (138) for an unknown element, and when the factory creates an object that is not a Base.
    template <class Base>
    [[nodiscard]] CSHAREOBJECTPTR<Base> Create(CKEYREADER& reader) const;

private:
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> CreateFor(CKEYREADER& reader) const;
    [[noreturn]] void FailClass(const CKEYREADER& reader, const COBJECT* created) const;

    const char* mWhat;
    std::map<std::string, std::string> mClassNames;
};

template <class Base>
CSHAREOBJECTPTR<Base> ELEMENTKINDS::Create(CKEYREADER& reader) const {
    const CSHAREOBJECTPTR<COBJECT> created = CreateFor(reader);
    const CSHAREOBJECTPTR<Base> object(dynamic_cast<Base*>(created.Get()));
    if (!object) {
        FailClass(reader, created);
    }
    object->DoInitState(reader);
    return object;
}

}  // namespace MLCore
