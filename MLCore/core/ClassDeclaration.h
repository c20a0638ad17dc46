/// A class takes part in run-time class information, protocols and the object factory by one macro in its header and
/// one in its source.
///
///     // CORDER.h
///     class CORDER : public COBJECT, public CINDEXEDACCESS {
///         MLCORE_CLASS(CORDER, COBJECT, CINDEXEDACCESS)  // class, base, then the protocols that it adds
///     public:
///         static CSHAREOBJECTPTR<CORDER> Create() { return AdoptObject(new CORDER); }
///         ...
///     };
///
///     // CORDER.cpp, inside the namespace of the class
///     MLCORE_REGISTER_CLASS(CORDER)
///
/// A protocol is an interface class with its own description, which lists the protocols that it includes:
///
///     class CINDEXEDACCESS : public PROTOCOL {
///     public:
///         static const CCLASSTYPEINFO& ClassInfoStatic();
///         ...
///     };
///     const CCLASSTYPEINFO& CINDEXEDACCESS::ClassInfoStatic() {
///         static CLASSDESCRIPTION<CINDEXEDACCESS, void> gClassInfo("CINDEXEDACCESS");
///         return gClassInfo;
///     }
#pragma once

#include <MLCore/core/CCLASSTYPEINFO.h>
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/detail/CLASSREGISTRAR.h>

#include <concepts>
#include <cstdint>
#include <tuple>
#include <type_traits>

namespace MLCore {

/// The adapter of one protocol. A protocol that includes several others has several PROTOCOL bases. Any of them may
/// represent it, provided that Restore() reverses Produce().
template <class Protocol>
class PROTOCOLADAPTER final : public __protocol_base__ {
public:
    static_assert(std::is_base_of_v<PROTOCOL, Protocol>, "a protocol derives from PROTOCOL");

    PROTOCOL* Produce(void* subObject, void*) override {
        if constexpr (kIsDirect) {
            return static_cast<Protocol*>(subObject);
        } else {
            return static_cast<PROTOCOL*>(subObject);
        }
    }
    static Protocol* Restore(PROTOCOL* protocol) {
        if constexpr (kIsDirect) {
            return static_cast<Protocol*>(protocol);
        } else {
            return static_cast<Protocol*>(static_cast<void*>(protocol));
        }
    }

private:
    static constexpr bool kIsDirect = std::is_convertible_v<Protocol*, PROTOCOL*>;
};

/// The description of `Class`, which derives from `Base` (void for a root or a protocol) and adds `Protocols`. Each of
/// them must be a non-virtual base class of Class.
template <class Class, class Base, class... Protocols>
class CLASSDESCRIPTION final : public CCLASSTYPEINFO {
public:
    using BASE = Base;

    explicit CLASSDESCRIPTION(const char* name) : CCLASSTYPEINFO(name, InfoOf<Base>(), OffsetOf<Base>()) {
        (AddProtocol(InfoOf<Protocols>(), &std::get<PROTOCOLADAPTER<Protocols>>(mAdapters), OffsetOf<Protocols>()),
         ...);
    }

private:
    template <class Part>
    static const CCLASSTYPEINFO* InfoOf() {
        if constexpr (std::is_void_v<Part>) {
            return nullptr;
        } else {
            return &Part::ClassInfoStatic();
        }
    }

    // Measures at an address without an object: only the distance counts, nothing is read.
    template <class Part>
    static unsigned long long OffsetOf() {
        if constexpr (std::is_void_v<Part>) {
            return 0;
        } else {
            static_assert(
                requires(Part * part) { static_cast<Class*>(part); }, "a virtual base has no fixed offset");
            constexpr std::uintptr_t kStart = 0x10000;
            Class* const whole = reinterpret_cast<Class*>(kStart);
            return reinterpret_cast<std::uintptr_t>(static_cast<Part*>(whole)) - kStart;
        }
    }

    // Members, because statics of a template would keep the module loaded forever on some systems.
    std::tuple<PROTOCOLADAPTER<Protocols>...> mAdapters;
};

/// Whether a result is a holder of `Class` or of a class derived from it; never defined.
template <class Class, class U>
requires std::convertible_to<U*, Class*>
void TakeHolderOf(const CSHAREOBJECTPTR<U>& holder);

/// The sub-object of `object` that implements the protocol P; null when its class does not conform or `object` is null.
/// Borrowed: valid while the object is referenced.
template <class P>
[[nodiscard]] P* ProtocolCast(COBJECT* object) {
    return object != nullptr ? PROTOCOLADAPTER<P>::Restore(object->GetProtocolInstance(&P::ClassInfoStatic()))
                             : nullptr;
}

}  // namespace MLCore

/// MLCORE_CLASS(CNAME, CBASE, protocols...) must stand first in the class body and declares the functions that COBJECT
/// requires of a class. CNAME must derive from CBASE and from the protocols that it adds. Declarations after the macro
/// are private.
#define MLCORE_CLASS(CNAME, ...)                                                                             \
public:                                                                                                      \
    static const ::MLCore::CCLASSTYPEINFO& ClassInfoStatic();                                                \
    static const char* _ClassIdentifier();                                                                   \
    const ::MLCore::CCLASSTYPEINFO& ClassInfo() const override;                                              \
    ::MLCore::PROTOCOL* GetProtocolInstance(const ::MLCore::CCLASSTYPEINFO* protocol) override;              \
    const char* ClassName() const override;                                                                  \
                                                                                                             \
protected:                                                                                                   \
    static const ::MLCore::CCLASSTYPEINFO* _ClassInfo();                                                     \
                                                                                                             \
private:                                                                                                     \
    using CLASSDESCRIPTION_ = ::MLCore::CLASSDESCRIPTION<CNAME, __VA_ARGS__>;                                \
    const char* ClassIdentifier() const override;                                                            \
    static ::MLCore::CLASSREGISTRAR gRegistrar_;                                                             \
    template <class CLASS_, class BASE_>                                                                     \
    static constexpr ::MLCore::CLASSREGISTRAR::CREATOR Creator_() {                                          \
        using HOLDER = ::MLCore::CSHAREOBJECTPTR<::MLCore::COBJECT>;                                         \
        constexpr bool kIsTyped = requires { ::MLCore::TakeHolderOf<CLASS_>(CLASS_::Create()); };            \
        constexpr bool kIsPlain = requires { ::MLCore::TakeHolderOf<::MLCore::COBJECT>(CLASS_::Create()); }; \
        constexpr bool kIsInherited = requires { BASE_::Create(); };                                         \
        if constexpr (kIsTyped || (kIsPlain && !kIsInherited)) {                                             \
            return [] { return HOLDER(CLASS_::Create()); };                                                  \
        } else if constexpr (requires { new CLASS_(); }) {                                                   \
            return [] { return HOLDER(::MLCore::AdoptObject(new CLASS_())); };                               \
        } else {                                                                                             \
            return nullptr;                                                                                  \
        }                                                                                                    \
    }

/// MLCORE_REGISTER_CLASS(CNAME) must stand in the source of the class, inside its namespace. It defines the functions
/// that MLCORE_CLASS declares. If the class can be created, it also registers the class with the object factory while
/// the module is loaded. A class can be created by its own `Create()` without arguments or, if it has none and is not
/// abstract, by its default constructor of any access. Create() must return a CSHAREOBJECTPTR of the class, or of a
/// base when the base class itself has no Create(). The identifier is the name of the class, or the literal that
/// follows it; a class that cannot be created has none.
#define MLCORE_REGISTER_CLASS(CNAME, ...)                                                             \
    const ::MLCore::CCLASSTYPEINFO* CNAME::_ClassInfo() {                                             \
        static CLASSDESCRIPTION_ gClassInfo(#CNAME);                                                  \
        return &gClassInfo;                                                                           \
    }                                                                                                 \
    const ::MLCore::CCLASSTYPEINFO& CNAME::ClassInfoStatic() { return *_ClassInfo(); }                \
    const ::MLCore::CCLASSTYPEINFO& CNAME::ClassInfo() const { return ClassInfoStatic(); }            \
    ::MLCore::PROTOCOL* CNAME::GetProtocolInstance(const ::MLCore::CCLASSTYPEINFO* protocol) {        \
        return ClassInfoStatic().GetProtocol(protocol, this);                                         \
    }                                                                                                 \
    const char* CNAME::ClassName() const { return #CNAME; }                                           \
    const char* CNAME::ClassIdentifier() const { return _ClassIdentifier(); }                         \
    const char* CNAME::_ClassIdentifier() {                                                           \
        constexpr const char* kOwn = "" __VA_ARGS__;                                                  \
        constexpr const char* kIdentifier = kOwn[0] != '\0' ? kOwn : #CNAME;                          \
        return Creator_<CNAME, CLASSDESCRIPTION_::BASE>() != nullptr ? kIdentifier : nullptr;         \
    }                                                                                                 \
    ::MLCore::CLASSREGISTRAR CNAME::gRegistrar_(::MLCore::FactoryNameOf<CNAME>(), _ClassIdentifier(), \
                                                Creator_<CNAME, CLASSDESCRIPTION_::BASE>());
