#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONINPREDICATE)

using TYPE = CVALUEOBJECT::ComparisonType;

CCOMPARISONINPREDICATE::CCOMPARISONINPREDICATE() : CCOMPARISONPREDICATE(TYPE::In) {}

CCOMPARISONINPREDICATE::CCOMPARISONINPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested,
                                               const CSHAREOBJECTPTR<CEXPRESSION>& set,
                                               CVALUEOBJECT::ComparisonOption option)
    : CCOMPARISONPREDICATE(TYPE::In, option) {
    mOperands.Set(tested, set);
}

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

void CCOMPARISONINPREDICATE::Accept(CPREDICATEVISITOR& visitor) const { mOperands.Accept(*this, visitor); }

int CCOMPARISONINPREDICATE::Compare(const SUBJECT& subject) const {
    CSHAREOBJECTPTR<COBJECT> holders[2];
    const CVALUEOBJECT* const value = AsValueObject(mOperands[0].Evaluate(subject, holders[0]));
    return value != nullptr ? value->Cmp(mOperands[1].Evaluate(subject, holders[1]), TYPE::In, GetComparisonOption())
                            : 0;
}

void CCOMPARISONINPREDICATE::WriteOperands(CKEYWRITER& writer) const { mOperands.Write(writer); }

void CCOMPARISONINPREDICATE::ReadOperands(CKEYREADER& reader) { mOperands.Read(reader); }

}  // namespace MLCore
