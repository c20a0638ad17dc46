#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CVALUEOBJECT.h>

namespace MLCore {

/// What an expression is evaluated with.
struct SUBJECT {
    COBJECT* object;
    CDICTIONARY* variables;  ///< null: every variable is null
};

/// An expression as a predicate holds it: what does not depend on the object is computed once.
class OPERAND {
public:
    /// The constant Null: what a predicate has before it is read.
    OPERAND();
    /// Fails with -100 for null.
    explicit OPERAND(CSHAREOBJECTPTR<CEXPRESSION> expression);

    [[nodiscard]] CEXPRESSION* GetExpression() const noexcept { return mExpression; }
    [[nodiscard]] bool IsKey() const noexcept { return mIsKey; }
    /// The expression's value; may be null. Lives as long as the operand and `holder`. Not to be changed: a constant is shared.
    [[nodiscard]] COBJECT* Evaluate(const SUBJECT& subject, CSHAREOBJECTPTR<COBJECT>& holder) const {
        if (!!mConstant) {
            return mConstant;  // not counted: it has an owner
        }
        holder = subject.variables != nullptr ? mExpression->Evaluate(subject.object, *subject.variables)
                                              : mExpression->Evaluate(subject.object);
        return holder;
    }

private:
    CSHAREOBJECTPTR<CEXPRESSION> mExpression;
    CSHAREOBJECTPTR<COBJECT> mConstant;  // of a constant, or of a list of constants
    bool mIsKey = false;
};

}  // namespace MLCore
