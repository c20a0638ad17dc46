#pragma once

#include <MLCore/predicates/CEXPRESSION.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <typeinfo>

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

/// The value object that `object` is, or null.
[[nodiscard]] inline CVALUEOBJECT* ValueObject(COBJECT* object) noexcept {
    const bool isUsual = object != nullptr && typeid(*object) == typeid(CVALUEOBJECT);
    return isUsual ? static_cast<CVALUEOBJECT*>(object) : dynamic_cast<CVALUEOBJECT*>(object);
}

/// What `value` says of `other`, which may be a collection or null.
[[nodiscard]] inline int CompareValue(const CVALUEOBJECT& value, COBJECT* other, CVALUEOBJECT::ComparisonType type,
                                      CVALUEOBJECT::ComparisonOption option) {
    const CVALUEOBJECT* const otherValue = ValueObject(other);
    return otherValue != nullptr ? value.Cmp(otherValue->GetValue(), type, option) : value.Cmp(other, type, option);
}

}  // namespace MLCore
