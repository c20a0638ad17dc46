#pragma once

#include <MLCore/predicates/CCOMPARISONPREDICATE.h>
#include <MLCore/predicates/detail/OPERANDS.h>

namespace MLCore {

/// The value lies between two bounds, both included. False when one of the three is null or no value object.
class MLCORE_API CCOMPARISONBETWEENPREDICATE : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CCOMPARISONBETWEENPREDICATE, CCOMPARISONPREDICATE)

public:
    /// A null expression fails with -100.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& lower,
        const CSHAREOBJECTPTR<CEXPRESSION>& upper,
        CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetExpression() const noexcept { return mOperands[0].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetLowerBound() const noexcept { return mOperands[1].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetUpperBound() const noexcept { return mOperands[2].GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

protected:
    CCOMPARISONBETWEENPREDICATE();
    CCOMPARISONBETWEENPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& lower,
                                const CSHAREOBJECTPTR<CEXPRESSION>& upper, CVALUEOBJECT::ComparisonOption option);
    ~CCOMPARISONBETWEENPREDICATE() override;

private:
    void WriteOperands(CKEYWRITER& writer) const override;
    void ReadOperands(CKEYREADER& reader) override;
    [[nodiscard]] int Compare(const SUBJECT& subject) const;
    [[nodiscard]] static int CmpBetween(COBJECT* value, COBJECT* lower, COBJECT* upper,
                                        CVALUEOBJECT::ComparisonOption option);

    OPERANDS<3> mOperands;
};

}  // namespace MLCore
