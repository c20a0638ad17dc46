#pragma once

#include <MLCore/predicates/CCOMPARISONPREDICATE.h>
#include <MLCore/predicates/detail/OPERANDS.h>

namespace MLCore {

/// The value is an element of a collection, usually of a CLISTEXPRESSION: Equal to one under the option. False when the value
/// is a null pointer or no value object, or the other side no collection.
class MLCORE_API CCOMPARISONINPREDICATE : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CCOMPARISONINPREDICATE, CCOMPARISONPREDICATE)

public:
    /// A null expression fails with -100.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& set,
        CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetExpressionIn() const noexcept { return mOperands[0].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetExpressionSet() const noexcept { return mOperands[1].GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

protected:
    CCOMPARISONINPREDICATE();
    CCOMPARISONINPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested, const CSHAREOBJECTPTR<CEXPRESSION>& set,
                           CVALUEOBJECT::ComparisonOption option);
    ~CCOMPARISONINPREDICATE() override;

private:
    void WriteOperands(CKEYWRITER& writer) const override;
    void ReadOperands(CKEYREADER& reader) override;
    [[nodiscard]] int Compare(const SUBJECT& subject) const;

    OPERANDS<2> mOperands;
};

}  // namespace MLCore
