#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/platform/TypeName.h>

#include <string>
#include <typeinfo>

namespace MLCore {

class COBJECT;

/// Keeps one class registered with the object factory while its module is loaded. MLCORE_REGISTER_CLASS defines one as
/// a static object. A factory that is created again after COBJECTFACTORY::Free() registers the classes of all
/// registrars again.
class MLCORE_API CLASSREGISTRAR {
public:
    using CREATOR = CSHAREOBJECTPTR<COBJECT> (*)();

    /// `className` must be spelled as FactoryNameOf() does; `classIdentifier` may be null. A null `creator` means that
    /// the class cannot be created: nothing is registered.
    CLASSREGISTRAR(std::string className, const char* classIdentifier, CREATOR creator);
    ~CLASSREGISTRAR();
    CLASSREGISTRAR(const CLASSREGISTRAR&) = delete;
    CLASSREGISTRAR& operator=(const CLASSREGISTRAR&) = delete;

private:
    friend class COBJECTFACTORY;

    std::string mClassName;
    const char* mClassIdentifier;
    CREATOR mCreator;
    CLASSREGISTRAR* mNext = nullptr;
};

/// The name under which the factory knows the class T: "class shop::CORDER", spelled alike on every compiler.
template <class T>
[[nodiscard]] std::string FactoryNameOf() {
    return "class " + platform::TypeName(typeid(T));
}

}  // namespace MLCore
