#pragma once

#include <MLCore/predicates/detail/TEXTEXPRESSION.h>

namespace MLCore {

/// The name of an object. It is held, written and read, and its value is always null.
class MLCORE_API COBJECTEXPRESSION : public TEXTEXPRESSION {
    MLCORE_CLASS(COBJECTEXPRESSION, CEXPRESSION)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const std::string& name);
    COBJECTEXPRESSION(const COBJECTEXPRESSION&) = default;

    [[nodiscard]] const std::string& GetName() const noexcept { return GetHeldText(); }

    /// Returns null.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

protected:
    explicit COBJECTEXPRESSION(const std::string& name = {});
    ~COBJECTEXPRESSION() override;
};

/// Writes "COBJECTEXPRESSION(name)"; "COBJECTEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const COBJECTEXPRESSION* expression);

}  // namespace MLCore
