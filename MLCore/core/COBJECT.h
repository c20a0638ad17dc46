#pragma once

#include <MLCore/core/CCLASSTYPEINFO.h>
#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>

#include <string>

// <windows.h> makes a macro of this name; see COBJECTFACTORY.h.
#pragma push_macro("GetClassName")
#undef GetClassName

namespace MLCore {

/// The root of all objects that can be collected, streamed and tested by predicates: a shared object that knows its
/// class and gives access to its properties by key.
///
/// A class derives from COBJECT as its first base, declares itself with MLCORE_CLASS (ClassDeclaration.h), and
/// overrides GetKeyValue and SetKeyValue to give access to its properties; for a key that it does not know, it must
/// call its base's function. COBJECT walks key paths ("customer.orders[0].amount"): a name takes the value of this key
/// from the object reached so far, an index takes an element from it. Elements exist in objects that conform to
/// CINDEXEDACCESS, such as arrays.
class MLCORE_API COBJECT : public CSHAREOBJECT {
public:
    COBJECT(const COBJECT&) = default;

    /// The description of the object's class.
    [[nodiscard]] virtual const CCLASSTYPEINFO& ClassInfo() const;
    /// The object's implementation of `protocol` (borrowed), null when the class does not conform. ProtocolCast() also
    /// restores its type.
    [[nodiscard]] virtual PROTOCOL* GetProtocolInstance(const CCLASSTYPEINFO* protocol);
    /// A copy; the caller owns its one reference. Fails with kErrUnsupported (150) in a class that does not
    /// support it.
    [[nodiscard]] virtual COBJECT* Clone() const;
    /// The value of the property `key`, which may be null. Fails with kErrUnknownKey (151) when the class does not know
    /// the key.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key);
    /// Sets the property `key` to `value` (may be null); the object adds its own reference. Fails with kErrUnknownKey
    /// when the class does not know the key, or when the property cannot be set.
    virtual void SetKeyValue(const std::string& key, COBJECT* value);
    /// The value at the end of `keyPath` (CKEYPARSER describes the format). A null before the end gives null. Fails
    /// with kErrUnknownKey when the path is malformed, a key is unknown, an index is out of range, or the object at an
    /// index step has no elements; for a path of several steps the text names the path and the step.
    [[nodiscard]] virtual CSHAREOBJECTPTR<COBJECT> GetKeyPathValue(const std::string& keyPath);
    /// Sets the property, or the element of an array, at the end of `keyPath`. Fails as GetKeyPathValue() does, as
    /// SetKeyValue() of the last object does, and with kErrUnknownKey for a null before the end.
    virtual void SetKeyPathValue(const std::string& keyPath, COBJECT* value);
    /// 1 when the class conforms to `protocol`.
    [[nodiscard]] virtual int ConformsToProtocol(const CCLASSTYPEINFO* protocol) const;
    /// The class's own name as it was declared ("CORDER"), never null.
    [[nodiscard]] virtual const char* ClassName() const = 0;

private:
    virtual const char* ClassIdentifier() const;

public:
    [[nodiscard]] const char* GetClassName() const { return ClassName(); }
    /// The name under which object streams write the class; null when it cannot be created by identifier.
    [[nodiscard]] const char* GetClassIdentifier() const { return ClassIdentifier(); }
    /// Compares the class names byte by byte, as unsigned: -1, 0 or 1.
    [[nodiscard]] short CmpClass(const COBJECT& other) const;

    static const CCLASSTYPEINFO& ClassInfoStatic();
    /// Null: the root cannot be created.
    static const char* _ClassIdentifier();

#ifdef _WIN32
    [[nodiscard]] const char* GetClassNameA() const { return ClassName(); }
    [[nodiscard]] const char* GetClassNameW() const { return ClassName(); }
#endif

protected:
    COBJECT() = default;
    COBJECT& operator=(const COBJECT&) = default;
    ~COBJECT() override = 0;

    /// Fails with kErrUnknownKey, as the root's GetKeyValue() and SetKeyValue() do. The text names the class and the
    /// key. When the class conforms to CKEYNAMES, it also names the nearest key, or says that a listed key cannot be
    /// set.
    [[noreturn]] void FailUnknownKey(const std::string& key);

    static const CCLASSTYPEINFO* _ClassInfo();
};

}  // namespace MLCore

#pragma pop_macro("GetClassName")
