#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>

#include <MLCore/predicates/detail/ComparisonFailure.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONINPREDICATE)

using TYPE = CVALUEOBJECT::ComparisonType;

CCOMPARISONINPREDICATE::CCOMPARISONINPREDICATE() : CCOMPARISONPREDICATE(TYPE::In) {}

CCOMPARISONINPREDICATE::CCOMPARISONINPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested,
                                               const CSHAREOBJECTPTR<CEXPRESSION>& set,
                                               CVALUEOBJECT::ComparisonOption option)
    : CCOMPARISONPREDICATE(TYPE::In, option, {tested, set}) {}

CCOMPARISONINPREDICATE::~CCOMPARISONINPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CCOMPARISONINPREDICATE::Create(const CSHAREOBJECTPTR<CEXPRESSION>& tested,
                                                           const CSHAREOBJECTPTR<CEXPRESSION>& set,
                                                           CVALUEOBJECT::ComparisonOption option) {
    return AdoptObject<CPREDICATE>(new CCOMPARISONINPREDICATE(tested, set, option));
}

int CCOMPARISONINPREDICATE::Evaluate(COBJECT* object, CDICTIONARY& variables) const {
    return Compare({object, &variables});
}

int CCOMPARISONINPREDICATE::Evaluate(COBJECT* object) const { return Compare({object, nullptr}); }

int CCOMPARISONINPREDICATE::Compare(const SUBJECT& subject) const {
    const OPERANDS& operands = GetOperands();
    CSHAREOBJECTPTR<COBJECT> holders[2];
    const CVALUEOBJECT* const value = AsValueObject(operands[0].Evaluate(subject, holders[0]));
    if (value == nullptr) {
        return 0;
    }
    COBJECT* const list = operands[1].Evaluate(subject, holders[1]);
    try {
        return value->Cmp(list, TYPE::In, GetComparisonOption());
    } catch (const FrameworkException& failure) {
        FailInComparison(failure, TYPE::In, operands);
    }
}

}  // namespace MLCore
