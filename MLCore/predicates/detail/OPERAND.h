#pragma once

#include <MLCore/predicates/CEXPRESSION.h>

namespace MLCore {

/// What an expression is evaluated with.
struct SUBJECT {
    COBJECT* object;
    CDICTIONARY* variables;  ///< Null: every variable is null.
};

/// An expression as a predicate holds it. A value that does not depend on the object under test is computed once.
class OPERAND {
public:
    /// Without an expression: must be assigned to before it is used.
    OPERAND() = default;
    /// `expression` must not be null.
    explicit OPERAND(CSHAREOBJECTPTR<CEXPRESSION> expression);
    /// The constant Null, which a predicate holds before it is read.
    [[nodiscard]] static const OPERAND& Null();

    [[nodiscard]] CEXPRESSION* GetExpression() const noexcept { return mExpression; }
    [[nodiscard]] bool IsKey() const noexcept { return mIsKey; }
    /// Returns the expression's value, which may be null. It lives as long as the operand and `holder`, and must not be
    /// changed: a constant is shared.
    [[nodiscard]] COBJECT* Evaluate(const SUBJECT& subject, CSHAREOBJECTPTR<COBJECT>& holder) const;

private:
    CSHAREOBJECTPTR<CEXPRESSION> mExpression;
    CSHAREOBJECTPTR<COBJECT> mConstant;  // of a constant, or of a list of constants
    bool mIsKey = false;
};

inline COBJECT* OPERAND::Evaluate(const SUBJECT& subject, CSHAREOBJECTPTR<COBJECT>& holder) const {
    if (!!mConstant) {
        return mConstant;  // not counted: it has an owner
    }
    holder = subject.variables != nullptr ? mExpression->Evaluate(subject.object, *subject.variables)
                                          : mExpression->Evaluate(subject.object);
    return holder;
}

}  // namespace MLCore
