#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>

#include <MLCore/predicates/detail/ComparisonFailure.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONBETWEENPREDICATE)

using TYPE = CVALUEOBJECT::ComparisonType;

CCOMPARISONBETWEENPREDICATE::CCOMPARISONBETWEENPREDICATE() : CCOMPARISONPREDICATE(TYPE::Between) {}

CCOMPARISONBETWEENPREDICATE::CCOMPARISONBETWEENPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& tested,
                                                         const CSHAREOBJECTPTR<CEXPRESSION>& lower,
                                                         const CSHAREOBJECTPTR<CEXPRESSION>& upper,
                                                         CVALUEOBJECT::ComparisonOption option)
    : CCOMPARISONPREDICATE(TYPE::Between, option, {tested, lower, upper}) {}

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

int CCOMPARISONBETWEENPREDICATE::Compare(const SUBJECT& subject) const {
    CSHAREOBJECTPTR<COBJECT> holders[3];
    COBJECT* values[3];
    for (std::size_t i = 0; i < 3; ++i) {
        values[i] = GetOperands()[i].Evaluate(subject, holders[i]);
    }
    try {
        return CmpBetween(values[0], values[1], values[2], GetComparisonOption());
    } catch (const FrameworkException& failure) {
        FailInComparison(failure, TYPE::Between, GetOperands());
    }
}

int CCOMPARISONBETWEENPREDICATE::CmpBetween(COBJECT* value, COBJECT* lower, COBJECT* upper,
                                            CVALUEOBJECT::ComparisonOption option) {
    const CVALUEOBJECT* const tested = AsValueObject(value);
    const CVALUEOBJECT* const least = AsValueObject(lower);
    const CVALUEOBJECT* const most = AsValueObject(upper);
    if (tested == nullptr || least == nullptr || most == nullptr) {
        return 0;
    }
    return tested->Cmp(least->GetValue(), TYPE::GreaterEqual, option) != 0
               ? tested->Cmp(most->GetValue(), TYPE::LesserEqual, option)
               : 0;
}

}  // namespace MLCore
