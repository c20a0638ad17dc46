#pragma once

#include <MLCore/predicates/CCOMPARISONPREDICATE.h>
#include <MLCore/predicates/detail/OPERANDS.h>

namespace MLCore {

/// A comparison of two operands; BinaryPredicates.h has the class of each comparison.
///
/// The left value is compared with the right one. Where only the right operand is a key (CKEYEXPRESSION) and the comparison
/// is one of the four orders, the key's value is compared with the left one by the mirrored order, which is taken from 3 and
/// so *reverses strictness*: `5 < key` is evaluated as `key >= 5`, `5 > key` as `key <= 5`. That is meant so.
///
/// A null pointer on either side, and a left value that is no value object, make it false; null values compare as CVALUEOBJECT
/// tells.
class MLCORE_API CCOMPARISONBINARYPREDICATE : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CCOMPARISONBINARYPREDICATE, CCOMPARISONPREDICATE)

public:
    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetLeftOperande() const noexcept { return mOperands[0].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetRightOperande() const noexcept { return mOperands[1].GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

protected:
    explicit CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType type);
    /// A null operand fails with -100.
    CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType type, const CSHAREOBJECTPTR<CEXPRESSION>& left,
                               const CSHAREOBJECTPTR<CEXPRESSION>& right, CVALUEOBJECT::ComparisonOption option);
    ~CCOMPARISONBINARYPREDICATE() override;

private:
    void WriteOperands(CKEYWRITER& writer) const override;
    void ReadOperands(CKEYREADER& reader) override;
    [[nodiscard]] int Compare(const SUBJECT& subject) const;

    OPERANDS<2> mOperands;
};

}  // namespace MLCore
