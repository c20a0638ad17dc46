#include <MLCore/predicates/OPERAND.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CLISTEXPRESSION.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/predicates/TypedArray.h>

#include <utility>

namespace MLCore {

namespace {

// A class derived from these may evaluate otherwise.
template <class Class>
Class* Exactly(CEXPRESSION* expression) {
    return expression->ClassInfo().IsSame(Class::ClassInfoStatic()) != 0 ? static_cast<Class*>(expression) : nullptr;
}

CSHAREOBJECTPTR<COBJECT> ConstantOf(CEXPRESSION* expression) {
    if (const auto* const value = Exactly<CVALUEEXPRESSION>(expression)) {
        return value->GetConstant();
    }
    auto* const list = Exactly<CLISTEXPRESSION>(expression);
    if (list == nullptr) {
        return nullptr;
    }
    bool isConstant = true;
    ForEachOf<CEXPRESSION>(list->GetExpressions(), [&isConstant](CEXPRESSION& each) {
        isConstant = isConstant && Exactly<CVALUEEXPRESSION>(&each) != nullptr;
    });
    return isConstant ? list->Evaluate(nullptr) : nullptr;
}

}  // namespace

OPERAND::OPERAND(CSHAREOBJECTPTR<CEXPRESSION> expression) : mExpression(std::move(expression)) {
    FailNull(mExpression);
    mConstant = ConstantOf(mExpression);
    mIsKey = mExpression->ClassInfo().IsKind(CKEYEXPRESSION::ClassInfoStatic()) != 0;
}

}  // namespace MLCore
