#include <MLCore/predicates/detail/OPERAND.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CLISTEXPRESSION.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/predicates/detail/TypedArray.h>

#include <utility>

namespace MLCore {

namespace {

// A class derived from these may evaluate differently, so only the exact classes count.

bool IsConstant(const CEXPRESSION& expression) { return IsExactly<CVALUEEXPRESSION>(expression); }

bool IsConstantList(const CEXPRESSION& expression) {
    bool isConstant = IsExactly<CLISTEXPRESSION>(expression);
    if (isConstant) {
        ForEachOf<CEXPRESSION>(static_cast<const CLISTEXPRESSION&>(expression).GetExpressions(),
                               [&](const CEXPRESSION& each) { isConstant = isConstant && IsConstant(each); });
    }
    return isConstant;
}

}  // namespace

OPERAND::OPERAND(CSHAREOBJECTPTR<CEXPRESSION> expression) : mExpression(std::move(expression)) {
    if (IsConstant(*mExpression) || IsConstantList(*mExpression)) {
        mConstant = mExpression->Evaluate(nullptr);
    }
    mIsKey = mExpression->ClassInfo().IsKind(CKEYEXPRESSION::ClassInfoStatic()) != 0;
}

const OPERAND& OPERAND::Null() {
    static const OPERAND gNull(CVALUEEXPRESSION::Create(CVALUE::Null()));
    return gNull;
}

}  // namespace MLCore
