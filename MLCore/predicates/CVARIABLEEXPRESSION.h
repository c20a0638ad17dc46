#pragma once

#include <MLCore/predicates/CEXPRESSION.h>

#include <string>
#include <utility>

namespace MLCore {

/// The value of a variable: what the dictionary of variables holds under its name.
class MLCORE_API CVARIABLEEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(CVARIABLEEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const std::string& name);
    CVARIABLEEXPRESSION(const CVARIABLEEXPRESSION&) = default;
    CVARIABLEEXPRESSION(CVARIABLEEXPRESSION&& other) : CVARIABLEEXPRESSION(std::as_const(other)) {}

    [[nodiscard]] const std::string& GetName() const noexcept { return mName; }

    /// Null for a variable that is missing, and without variables. The object does not matter.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

    static constexpr const char* kElement = "variable";

protected:
    explicit CVARIABLEEXPRESSION(const std::string& name);
    ~CVARIABLEEXPRESSION() override;

private:
    CVARIABLEEXPRESSION();

    std::string mName;
};

/// Writes "CVARIABLEEXPRESSION(name)"; "CVARIABLEEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVARIABLEEXPRESSION* expression);

}  // namespace MLCore
