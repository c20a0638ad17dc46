#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/core/detail/CLASSREGISTRAR.h>
#include <MLCore/platform/Export.h>

#include <memory>

// <windows.h> defines two names below as macros. They are set aside while the class is declared, and restored for the
// client's own calls of the system functions.
#pragma push_macro("RegisterClass")
#pragma push_macro("UnregisterClass")
#undef RegisterClass
#undef UnregisterClass

namespace MLCore {

class COBJECTFACTORY;
MLCORE_DECLARE_INSTANCE(CSINGLETON<COBJECTFACTORY, noautorelease>)

/// Creates objects by the name of their class, for readers of streams and key streams. Each process has one factory,
/// which GetInstance() returns. It is not freed automatically: the application may call Free() at its end.
///
///     CSHAREOBJECTPTR<COBJECT> order = COBJECTFACTORY::GetInstance()->CreateObject("class shop::CORDER");
///
/// A class has a name ("class shop::CORDER", see FactoryNameOf) and may have an identifier ("CORDER"), which object
/// streams write. Both are matched exactly. Classes declared with MLCORE_REGISTER_CLASS register themselves.
///
/// The factory is not synchronised: classes must be registered while modules load; then any thread may look them up.
/// Lookups take logarithmic time.
class MLCORE_API COBJECTFACTORY : public CSINGLETON<COBJECTFACTORY, noautorelease> {
public:
    using CREATOR = CLASSREGISTRAR::CREATOR;

    /// Registers a class. `creator` must return a new object with the only reference to it. With `classIdentifier` null
    /// the class has no identifier. A class already registered under the name is replaced, with its old identifier; an
    /// identifier already taken goes to the new class. Fails with kErrNull (-100) when the name or the creator is null.
    void RegisterClass(const char* className, const char* classIdentifier, CREATOR creator);
    void RegisterClass(const char* className, CREATOR creator);
    /// Removes the class under this name with its identifier, unless another class has taken over the identifier.
    /// Unknown or null names are ignored.
    void UnregisterClass(const char* className);

    /// 1 when a class of this name, or identifier, is registered (null: 0).
    [[nodiscard]] int IsRegistered(const char* className) const;
    [[nodiscard]] int IsRegisteredIdentifier(const char* classIdentifier) const;

    /// Calls the creator of the class and returns its object, normally a new one; exceptions of the creator pass
    /// through. Fails with kErrUnknownClass (123) when the name or identifier is null or not registered.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> CreateObject(const char* className) const;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> CreateObjectFromIdentifier(const char* classIdentifier) const;

#ifdef _WIN32
    // The names of these calls in a client that includes <windows.h> after this header.
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
