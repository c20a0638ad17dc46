#pragma once

#include <MLCore/platform/Export.h>

#include <vector>

namespace MLCore {

/// The root of all protocols. A PROTOCOL* points to the protocol sub-object of an object; ProtocolCast() restores its
/// type.
class MLCORE_API PROTOCOL {
protected:
    PROTOCOL() = default;
    PROTOCOL(const PROTOCOL&) = default;
    PROTOCOL& operator=(const PROTOCOL&) = default;
    virtual ~PROTOCOL();
};

/// Produces the PROTOCOL* of one protocol for an object. The name keeps its established spelling.
class MLCORE_API __protocol_base__ {
public:
    virtual ~__protocol_base__();
    /// `subObject` is the start of the protocol's sub-object, `object` the start of the object that holds it.
    virtual PROTOCOL* Produce(void* subObject, void* object) = 0;
};

/// The run-time description of a class: its name, its base class and the protocols that it conforms to. A protocol is
/// an interface class with its own description.
///
/// Each class has one description per process, and classes are compared by the addresses of their descriptions. A
/// description lives from its first use until the module that defines it is unloaded. The macros of ClassDeclaration.h
/// make it.
class MLCORE_API CCLASSTYPEINFO {
public:
    /// One protocol of a class.
    class MLCORE_API PROTOCOLELEM {
    public:
        PROTOCOLELEM(const CCLASSTYPEINFO* protocol, __protocol_base__* base, unsigned long long offset)
        noexcept : mProtocol(protocol), mBase(base), mOffset(offset) {}
        [[nodiscard]] const CCLASSTYPEINFO* GetProtocol() const noexcept { return mProtocol; }

    private:
        friend class CCLASSTYPEINFO;
        const CCLASSTYPEINFO* mProtocol;
        __protocol_base__* mBase;
        unsigned long long mOffset;  // bytes from the start of the object to its protocol sub-object
    };

    /// `name` must be a literal and is not owned. `super` describes the base class (null for a root). Its sub-object
    /// starts `offset` bytes into an object of this class, and its protocols are inherited with that offset added.
    CCLASSTYPEINFO(const char* name, const CCLASSTYPEINFO* super, unsigned long long offset);
    CCLASSTYPEINFO(const CCLASSTYPEINFO&) = delete;
    CCLASSTYPEINFO& operator=(const CCLASSTYPEINFO&) = delete;

    [[nodiscard]] const char* GetName() const noexcept { return mName; }
    /// The base class's description, null for a root.
    [[nodiscard]] const CCLASSTYPEINFO* GetSuper() const noexcept { return mSuper; }
    [[nodiscard]] const std::vector<PROTOCOLELEM>& GetProtocols() const noexcept { return mProtocols; }
    [[nodiscard]] int HasSuper() const noexcept { return mSuper != nullptr ? 1 : 0; }

    /// 1 when this and `other` describe one class.
    [[nodiscard]] int IsSame(const CCLASSTYPEINFO& other) const noexcept;
    /// 1 when this class is the direct base of `other`.
    [[nodiscard]] int IsSuper(const CCLASSTYPEINFO& other) const noexcept;
    /// 1 when this class is a strict ancestor of `other`.
    [[nodiscard]] int IsBase(const CCLASSTYPEINFO& other) const noexcept;
    /// 1 when this class is `other` or derives from it.
    [[nodiscard]] int IsKind(const CCLASSTYPEINFO& other) const noexcept;
    /// 1 when one of the two is the other or derives from it.
    [[nodiscard]] int IsRelative(const CCLASSTYPEINFO& other) const noexcept;

    /// 1 when the class conforms to `protocol` (null: 0).
    [[nodiscard]] int ConformsToProtocol(const CCLASSTYPEINFO* protocol) const noexcept;
    /// The protocol sub-object of `object`, or null when the class does not conform to `protocol`. `object` must be the
    /// start of an object of this class.
    [[nodiscard]] PROTOCOL* GetProtocol(const CCLASSTYPEINFO* protocol, void* object) const;

private:
    template <class Class, class Base, class... Protocols>
    friend class CLASSDESCRIPTION;

    void AddProtocol(const CCLASSTYPEINFO* protocol, __protocol_base__* base, unsigned long long offset);
    void AppendProtocolsOf(const CCLASSTYPEINFO& other, unsigned long long offset);
    [[nodiscard]] const PROTOCOLELEM* FindProtocol(const CCLASSTYPEINFO* protocol) const noexcept;

    const char* mName;
    const CCLASSTYPEINFO* mSuper;
    std::vector<PROTOCOLELEM> mProtocols;
};

}  // namespace MLCore
