#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/core/detail/CLASSREGISTRAR.h>
#include <MLCore/platform/Export.h>

#include <memory>

// <windows.h> makes macros of two names below. They are set aside while the class is declared, and put back for the
// client's own calls of the system functions.
#pragma push_macro("RegisterClass")
#pragma push_macro("UnregisterClass")
#undef RegisterClass
#undef UnregisterClass

namespace MLCore {

class COBJECTFACTORY;
MLCORE_DECLARE_INSTANCE(CSINGLETON<COBJECTFACTORY, noautorelease>)

/// Creates objects by the name of their class, for readers of streams and key streams. One per process, reached through
/// GetInstance(), and not released by itself: the application may call Free() at its end.
///
///     CSHAREOBJECTPTR<COBJECT> order = COBJECTFACTORY::GetInstance()->CreateObject("class shop::CORDER");
///
/// A class has a name ("class shop::CORDER", see FactoryNameOf) and may have an identifier ("CORDER", what
/// object streams write). Both are matched exactly. Classes declared with MLCORE_REGISTER_CLASS enter themselves.
///
/// Not synchronised: register while modules load, then look up from any thread. Lookups are logarithmic.
class MLCORE_API COBJECTFACTORY : public CSINGLETON<COBJECTFACTORY, noautorelease> {
public:
    using CREATOR = CLASSREGISTRAR::CREATOR;

    /// Enters a class. `creator` returns a new object with the only reference to it. `classIdentifier` null: the class
    /// has none. A class already registered under the name is replaced, its old identifier included; an identifier
    /// already taken goes to the new class. A null name or creator fails with -100.
    void RegisterClass(const char* className, const char* classIdentifier, CREATOR creator);
    void RegisterClass(const char* className, CREATOR creator);
    /// Removes the class under this name with its identifier, unless another class has taken that over. Unknown or
    /// null names are ignored.
    void UnregisterClass(const char* className);

    /// 1 when a class of this name, or identifier, is registered (null: 0).
    [[nodiscard]] int IsRegistered(const char* className) const;
    [[nodiscard]] int IsRegisteredIdentifier(const char* classIdentifier) const;

    /// What the creator of the class returns, normally a new object; its exceptions pass through. A name or identifier
    /// that is not registered (null included) fails with 123.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> CreateObject(const char* className) const;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> CreateObjectFromIdentifier(const char* classIdentifier) const;

#ifdef _WIN32
    // What the calls become in a client that includes <windows.h> after this header.
    void RegisterClassA(const char* className, const char* classIdentifier, CREATOR creator) {
        RegisterClass(className, classIdentifier, creator);
    }
    void RegisterClassW(const char* className, const char* classIdentifier, CREATOR creator) {
        RegisterClass(className, classIdentifier, creator);
    }
    void RegisterClassA(const char* className, CREATOR creator) { RegisterClass(className, creator); }
    void RegisterClassW(const char* className, CREATOR creator) { RegisterClass(className, creator); }
    void UnregisterClassA(const char* className) { UnregisterClass(className); }
    void UnregisterClassW(const char* className) { UnregisterClass(className); }
#endif

private:
    friend class CSINGLETON<COBJECTFACTORY, noautorelease>;
    friend class CLASSREGISTRAR;

    COBJECTFACTORY();
    ~COBJECTFACTORY() override;
    void Enter(const CLASSREGISTRAR& registrar);
    void Leave(const CLASSREGISTRAR& registrar) noexcept;

    struct IMPLEMENTATION;
    std::unique_ptr<IMPLEMENTATION> mImplementation;
};

}  // namespace MLCore

#pragma pop_macro("RegisterClass")
#pragma pop_macro("UnregisterClass")
