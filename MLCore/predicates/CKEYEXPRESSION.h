#pragma once

#include <MLCore/predicates/detail/TEXTEXPRESSION.h>

namespace MLCore {

/// The value at a key path of the object under test.
class MLCORE_API CKEYEXPRESSION : public TEXTEXPRESSION {
    MLCORE_CLASS(CKEYEXPRESSION, CEXPRESSION)

public:
    /// The path is not checked here: Evaluate() fails when it is malformed.
    [[nodiscard]] static CSHAREOBJECTPTR<CEXPRESSION> Create(const std::string& key);
    CKEYEXPRESSION(const CKEYEXPRESSION&) = default;

    [[nodiscard]] const std::string& GetKey() const noexcept { return GetHeldText(); }

    /// Returns the object's GetKeyPathValue(GetKey()), and fails as that does: with kErrUnknownKey (151) for an
    /// unknown key and a malformed path. Returns null for a null object. The variables are not used.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object, CDICTIONARY& variables) override;
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT> Evaluate(COBJECT* object) override;

protected:
    explicit CKEYEXPRESSION(const std::string& key = {});
    ~CKEYEXPRESSION() override;
};

/// Writes "CKEYEXPRESSION(key)"; "CKEYEXPRESSION()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CKEYEXPRESSION* expression);

}  // namespace MLCore
