#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CARRAY.h>

#include <string>
#include <utility>

namespace MLCore {

/// The base of functions that a user of the library writes: a class derives from it and defines both Evaluate().
///
/// Functions cannot be written to key streams, deliberately: only their user knows their classes.
class MLCORE_API CFUNCTIONEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CFUNCTIONEXPRESSION, CEXPRESSION)

public:
    CFUNCTIONEXPRESSION(const CFUNCTIONEXPRESSION&) = default;
    CFUNCTIONEXPRESSION(CFUNCTIONEXPRESSION&& other) : CFUNCTIONEXPRESSION(std::as_const(other)) {}

    [[nodiscard]] const std::string& GetName() const noexcept { return mName; }
    [[nodiscard]] const CARRAY& GetParameters() const noexcept { return *mParameters; }

    /// Fails with 138, with the element begun.
    void DoWriteState(CKEYWRITER& writer) const override;
    /// Fails with 138, with the element entered.
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "function";

protected:
    /// Without a name or parameters.
    CFUNCTIONEXPRESSION();
    /// Copies the array of parameters, which may be anything, not the parameters.
    CFUNCTIONEXPRESSION(const std::string& name, CARRAY& parameters);
    ~CFUNCTIONEXPRESSION() override;

private:
    std::string mName;
    CSHAREOBJECTPTR<CARRAY> mParameters;
};

/// Writes "CFUNCTIONEXPRESSION(name(...))", or "CFUNCTIONEXPRESSION(name())" without parameters; "CFUNCTIONEXPRESSION()" for
/// null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CFUNCTIONEXPRESSION* expression);

}  // namespace MLCore
