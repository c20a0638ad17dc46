#pragma once

#include <MLCore/predicates/CCOMPARISONPREDICATE.h>

namespace MLCore {

/// True when the value lies between two bounds, both included. The comparison is false when one of the three is null or
/// not a value object.
class MLCORE_API CCOMPARISONBETWEENPREDICATE : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CCOMPARISONBETWEENPREDICATE, CCOMPARISONPREDICATE)

public:
    /// A null expression fails with kErrNull (-100).
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& lower,
        const CSHAREOBJECTPTR<CEXPRESSION>& upper,
        CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetExpression() const noexcept { return GetOperands()[0].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetLowerBound() const noexcept { return GetOperands()[1].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetUpperBound() const noexcept { return GetOperands()[2].GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;

protected:
    CCOMPARISONBETWEENPREDICATE();
    CCOMPARISONBETWEENPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& lower,
                                const CSHAREOBJECTPTR<CEXPRESSION>& upper, CVALUEOBJECT::ComparisonOption option);
    ~CCOMPARISONBETWEENPREDICATE() override;

private:
    [[nodiscard]] int Compare(const SUBJECT& subject) const;
    [[nodiscard]] static int CmpBetween(COBJECT* value, COBJECT* lower, COBJECT* upper,
                                        CVALUEOBJECT::ComparisonOption option);
};

}  // namespace MLCore
