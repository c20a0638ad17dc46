#include <MLCore/predicates/CCOMPARISONBINARYPREDICATE.h>

#include <MLCore/predicates/detail/ComparisonFailure.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONBINARYPREDICATE)

namespace {

using TYPE = CVALUEOBJECT::ComparisonType;

bool IsOrder(TYPE type) noexcept { return type >= TYPE::Lesser && type <= TYPE::GreaterEqual; }

// 0 to 3, 1 to 2 and back: the numbers are part of the rule.
TYPE Mirror(TYPE type) noexcept {
    return static_cast<TYPE>(static_cast<int>(TYPE::GreaterEqual) - static_cast<int>(type));
}

}  // namespace

CCOMPARISONBINARYPREDICATE::CCOMPARISONBINARYPREDICATE(TYPE type) : CCOMPARISONPREDICATE(type) {}

CCOMPARISONBINARYPREDICATE::CCOMPARISONBINARYPREDICATE(TYPE type, const CSHAREOBJECTPTR<CEXPRESSION>& left,
                                                       const CSHAREOBJECTPTR<CEXPRESSION>& right,
                                                       CVALUEOBJECT::ComparisonOption option)
    : CCOMPARISONPREDICATE(type, option, {left, right}) {}

CCOMPARISONBINARYPREDICATE::~CCOMPARISONBINARYPREDICATE() = default;

int CCOMPARISONBINARYPREDICATE::Evaluate(COBJECT* object, CDICTIONARY& variables) const {
    return Compare({object, &variables});
}

int CCOMPARISONBINARYPREDICATE::Evaluate(COBJECT* object) const { return Compare({object, nullptr}); }

int CCOMPARISONBINARYPREDICATE::Compare(const SUBJECT& subject) const {
    const OPERANDS& operands = GetOperands();
    CSHAREOBJECTPTR<COBJECT> holders[2];
    COBJECT* const left = operands[0].Evaluate(subject, holders[0]);
    COBJECT* const right = operands[1].Evaluate(subject, holders[1]);
    const CVALUEOBJECT* first = AsValueObject(left);
    if (first == nullptr || right == nullptr) {
        return 0;
    }
    const TYPE type = GetComparisonType();
    try {
        if (operands[0].IsKey() || !operands[1].IsKey() || !IsOrder(type)) {
            return first->Cmp(right, type, GetComparisonOption());
        }
        first = AsValueObject(right);
        return first != nullptr ? first->Cmp(left, Mirror(type), GetComparisonOption()) : 0;
    } catch (const FrameworkException& failure) {
        FailInComparison(failure, type, operands);
    }
}

}  // namespace MLCore
