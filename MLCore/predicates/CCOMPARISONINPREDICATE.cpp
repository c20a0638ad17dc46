#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>

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
    return value != nullptr ? value->Cmp(operands[1].Evaluate(subject, holders[1]), TYPE::In, GetComparisonOption())
                            : 0;
}

}  // namespace MLCore
