#include <MLCore/predicates/CCOMPARISONBINARYPREDICATE.h>

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

CCOMPARISONBINARYPREDICATE::CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType type)
    : CCOMPARISONPREDICATE(type) {}

CCOMPARISONBINARYPREDICATE::CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType type,
                                                       const CSHAREOBJECTPTR<CEXPRESSION>& left,
                                                       const CSHAREOBJECTPTR<CEXPRESSION>& right,
                                                       CVALUEOBJECT::ComparisonOption option)
    : CCOMPARISONPREDICATE(type, option) {
    mOperands.Set(left, right);
}

CCOMPARISONBINARYPREDICATE::~CCOMPARISONBINARYPREDICATE() = default;

int CCOMPARISONBINARYPREDICATE::Evaluate(COBJECT* object, CDICTIONARY& variables) const {
    return Compare({object, &variables});
}

int CCOMPARISONBINARYPREDICATE::Evaluate(COBJECT* object) const { return Compare({object, nullptr}); }

void CCOMPARISONBINARYPREDICATE::Accept(CPREDICATEVISITOR& visitor) const { mOperands.Accept(*this, visitor); }

int CCOMPARISONBINARYPREDICATE::Compare(const SUBJECT& subject) const {
    CSHAREOBJECTPTR<COBJECT> holders[2];
    COBJECT* const left = mOperands[0].Evaluate(subject, holders[0]);
    COBJECT* const right = mOperands[1].Evaluate(subject, holders[1]);
    const CVALUEOBJECT* first = AsValueObject(left);
    if (first == nullptr || right == nullptr) {
        return 0;
    }
    const TYPE type = GetComparisonType();
    if (mOperands[0].IsKey() || !mOperands[1].IsKey() || !IsOrder(type)) {
        return first->Cmp(right, type, GetComparisonOption());
    }
    first = AsValueObject(right);
    return first != nullptr ? first->Cmp(left, Mirror(type), GetComparisonOption()) : 0;
}

void CCOMPARISONBINARYPREDICATE::WriteOperands(CKEYWRITER& writer) const { mOperands.Write(writer); }

void CCOMPARISONBINARYPREDICATE::ReadOperands(CKEYREADER& reader) { mOperands.Read(reader); }

}  // namespace MLCore
