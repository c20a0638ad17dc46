#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONBETWEENPREDICATE)

using TYPE = CVALUEOBJECT::ComparisonType;

CCOMPARISONBETWEENPREDICATE::CCOMPARISONBETWEENPREDICATE() : CCOMPARISONPREDICATE(TYPE::Between) {}

CCOMPARISONBETWEENPREDICATE::CCOMPARISONBETWEENPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested,
                                                         const CSHAREOBJECTPTR<CEXPRESSION>& lower,
                                                         const CSHAREOBJECTPTR<CEXPRESSION>& upper,
                                                         CVALUEOBJECT::ComparisonOption option)
    : CCOMPARISONPREDICATE(TYPE::Between, option) {
    mOperands.Set(tested, lower, upper);
}

CCOMPARISONBETWEENPREDICATE::~CCOMPARISONBETWEENPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CCOMPARISONBETWEENPREDICATE::Create(const CSHAREOBJECTPTR<CEXPRESSION>& tested,
                                                                const CSHAREOBJECTPTR<CEXPRESSION>& lower,
                                                                const CSHAREOBJECTPTR<CEXPRESSION>& upper,
                                                                CVALUEOBJECT::ComparisonOption option) {
    return AdoptObject<CPREDICATE>(new CCOMPARISONBETWEENPREDICATE(tested, lower, upper, option));
}

int CCOMPARISONBETWEENPREDICATE::Evaluate(COBJECT* object, CDICTIONARY& variables) const {
    return Compare({object, &variables});
}

int CCOMPARISONBETWEENPREDICATE::Evaluate(COBJECT* object) const { return Compare({object, nullptr}); }

void CCOMPARISONBETWEENPREDICATE::Accept(CPREDICATEVISITOR& visitor) const { mOperands.Accept(*this, visitor); }

int CCOMPARISONBETWEENPREDICATE::Compare(const SUBJECT& subject) const {
    const CSHAREOBJECTPTR<COBJECT> values[] = {mOperands[0].Evaluate(subject), mOperands[1].Evaluate(subject),
                                               mOperands[2].Evaluate(subject)};
    return CmpBetween(values[0], values[1], values[2], GetComparisonOption());
}

int CCOMPARISONBETWEENPREDICATE::CmpBetween(COBJECT* value, COBJECT* lower, COBJECT* upper,
                                            CVALUEOBJECT::ComparisonOption option) {
    const CVALUEOBJECT* const tested = ValueObject(value);
    if (tested == nullptr || ValueObject(lower) == nullptr || ValueObject(upper) == nullptr) {
        return 0;
    }
    return tested->Cmp(lower, TYPE::GreaterEqual, option) != 0 ? tested->Cmp(upper, TYPE::LesserEqual, option) : 0;
}

void CCOMPARISONBETWEENPREDICATE::WriteOperands(CKEYWRITER& writer) const { mOperands.Write(writer); }

void CCOMPARISONBETWEENPREDICATE::ReadOperands(CKEYREADER& reader) { mOperands.Read(reader); }

}  // namespace MLCore
