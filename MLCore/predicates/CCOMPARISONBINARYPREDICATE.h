#pragma once

#include <MLCore/predicates/CCOMPARISONPREDICATE.h>

namespace MLCore {

/// A comparison of two operands; BinaryPredicates.h has the class of each comparison.
///
/// The left value is compared with the right one. There is one exception: where only the right operand is a key
/// (CKEYEXPRESSION) and the comparison is `<`, `<=`, `>` or `>=`, the key's value is compared with the left one by the
/// mirrored comparison type, 3 minus the type. This *reverses strictness*: `5 < key` is evaluated as `key >= 5`, and
/// `5 > key` as `key <= 5`. It is intended, and stored predicates depend on it; put the key on the left to avoid it.
///
/// The comparison is false when one side is a null pointer and when the left value is not a value object. Null values
/// compare as CVALUEOBJECT describes.
class MLCORE_API CCOMPARISONBINARYPREDICATE : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CCOMPARISONBINARYPREDICATE, CCOMPARISONPREDICATE)

public:
    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetLeftOperande() const noexcept { return GetOperands()[0].GetExpression(); }
    [[nodiscard]] CEXPRESSION* GetRightOperande() const noexcept { return GetOperands()[1].GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;

protected:
    explicit CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType type);
    /// A null operand fails with kErrNull (-100).
    CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType type, const CSHAREOBJECTPTR<CEXPRESSION>& left,
                               const CSHAREOBJECTPTR<CEXPRESSION>& right, CVALUEOBJECT::ComparisonOption option);
    ~CCOMPARISONBINARYPREDICATE() override;

private:
    [[nodiscard]] int Compare(const SUBJECT& subject) const;
};

}  // namespace MLCore
