#pragma once

#include <MLCore/predicates/CCOMPARISONPREDICATE.h>

namespace MLCore {

/// True when the value is an element of a collection, usually of a CLISTEXPRESSION: it is Equal to one of the elements
/// under the option. The comparison is false when the value is null or not a value object, and when the other side is
/// not a collection. Costs up to one comparison for each element.
class MLCORE_API CCOMPARISONINPREDICATE : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CCOMPARISONINPREDICATE, CCOMPARISONPREDICATE)

public:
    /// A null expression fails with kErrNull (-100).
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& set,
        CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetExpressionIn() const noexcept { return GetOperands()[0].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetExpressionSet() const noexcept { return GetOperands()[1].GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;

protected:
    CCOMPARISONINPREDICATE();
    CCOMPARISONINPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& set,
                           CVALUEOBJECT::ComparisonOption option);
    ~CCOMPARISONINPREDICATE() override;

private:
    [[nodiscard]] int Compare(const SUBJECT& subject) const;
};

}  // namespace MLCore
