#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CARRAY.h>

#include <string>

namespace MLCore {

/// The base of an application's functions: a class derives from it and defines both Evaluate() functions.
///
///     class CTODAY : public CFUNCTIONEXPRESSION {
///         MLCORE_CLASS(CTODAY, CFUNCTIONEXPRESSION)
///     public:
///         CTODAY() : CFUNCTIONEXPRESSION("today", *CMEMARRAY::Create()) {}
///         CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY&) override { return Evaluate(object); }
///         CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT*) override { return CVALUEOBJECT::Create(CDATE::Today()); }
///     };
///
/// Functions cannot be written to key streams. This is intended: only the application knows their classes.
class MLCORE_API CFUNCTIONEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CFUNCTIONEXPRESSION, CEXPRESSION)

public:
    /// The copy shares the parameters.
    CFUNCTIONEXPRESSION(const CFUNCTIONEXPRESSION&) = default;

    [[nodiscard]] const std::string& GetName() const noexcept { return mName; }
    [[nodiscard]] const CARRAY& GetParameters() const noexcept { return *mParameters; }

    /// Fails with kErrValueType (138) after the element "function" has begun.
    void DoWriteState(CKEYWRITER& writer) const override;
    /// Fails with kErrValueType after the reader has entered the element "function".
    void DoInitState(CKEYREADER& reader) override;

protected:
    /// Without a name or parameters.
    CFUNCTIONEXPRESSION();
    /// Copies the array of parameters, but not the parameters, which may be any objects.
    CFUNCTIONEXPRESSION(const std::string& name, CARRAY& parameters);
    ~CFUNCTIONEXPRESSION() override;

private:
    friend class CEXPRESSION;
    [[noreturn]] static void FailToRead(CKEYREADER& reader);

    std::string mName;
    CSHAREOBJECTPTR<CARRAY> mParameters;
};

/// Writes "CFUNCTIONEXPRESSION(name(...))", or "CFUNCTIONEXPRESSION(name())" without parameters. Writes
/// "CFUNCTIONEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CFUNCTIONEXPRESSION* expression);

}  // namespace MLCore
