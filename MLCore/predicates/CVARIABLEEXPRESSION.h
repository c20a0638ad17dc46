#pragma once

#include <MLCore/predicates/detail/TEXTEXPRESSION.h>

namespace MLCore {

/// The value of a variable: the object that the dictionary of variables holds under its name.
class MLCORE_API CVARIABLEEXPRESSION : public TEXTEXPRESSION {
    MLCORE_CLASS(CVARIABLEEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const std::string& name);
    CVARIABLEEXPRESSION(const CVARIABLEEXPRESSION&) = default;

    [[nodiscard]] const std::string& GetName() const noexcept { return GetHeldText(); }

    /// Returns null for a missing variable, and without variables. The object is not used.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

protected:
    explicit CVARIABLEEXPRESSION(const std::string& name = {});
    ~CVARIABLEEXPRESSION() override;
};

/// Writes "CVARIABLEEXPRESSION(name)"; "CVARIABLEEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVARIABLEEXPRESSION* expression);

}  // namespace MLCore
