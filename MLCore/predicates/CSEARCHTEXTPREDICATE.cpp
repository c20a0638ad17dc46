#include <MLCore/predicates/CSEARCHTEXTPREDICATE.h>

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/detail/NodeText.h>
#include <MLCore/text/Blanks.h>

#include <string_view>
#include <utility>

namespace MLCore {

MLCORE_REGISTER_CLASS(CSEARCHTEXTPREDICATE)

namespace {

constexpr const char* kElement = "searchText";
constexpr std::size_t kMostOperands = 2;

bool IsText(const CVALUEOBJECT* object) {
    return object != nullptr && object->GetValue().GetType() == CVALUE::Type::String;
}

}  // namespace

CSEARCHTEXTPREDICATE::CSEARCHTEXTPREDICATE() : CSEARCHTEXTPREDICATE(std::vector<OPERAND>(1)) {}

CSEARCHTEXTPREDICATE::CSEARCHTEXTPREDICATE(std::vector<OPERAND> operands)
    : CPREDICATE(PredicateType::SearchText), mOperands(std::move(operands)) {
    if (mOperands.empty() || mOperands.size() > kMostOperands) {
        FailOSErr(kErrValueType);
    }
}

CSEARCHTEXTPREDICATE::~CSEARCHTEXTPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CSEARCHTEXTPREDICATE::Create(const CSHAREOBJECTPTR<CEXPRESSION>& text) {
    return AdoptObject<CPREDICATE>(new CSEARCHTEXTPREDICATE({OPERAND(text)}));
}

CSHAREOBJECTPTR<CPREDICATE> CSEARCHTEXTPREDICATE::Create(const CSHAREOBJECTPTR<CEXPRESSION>& field,
                                                         const CSHAREOBJECTPTR<CEXPRESSION>& text) {
    return AdoptObject<CPREDICATE>(new CSEARCHTEXTPREDICATE({OPERAND(field), OPERAND(text)}));
}

int CSEARCHTEXTPREDICATE::Evaluate(COBJECT* object, CDICTIONARY& variables) const {
    return Search({object, &variables});
}

int CSEARCHTEXTPREDICATE::Evaluate(COBJECT* object) const { return Search({object, nullptr}); }

int CSEARCHTEXTPREDICATE::Search(const SUBJECT& subject) const {
    if (GetField() == nullptr) {
        return 0;
    }
    CSHAREOBJECTPTR<COBJECT> holders[2];
    COBJECT* const field = mOperands.front().Evaluate(subject, holders[0]);
    COBJECT* const text = mOperands.back().Evaluate(subject, holders[1]);
    const CVALUEOBJECT* const where = AsValueObject(field);
    const CVALUEOBJECT* const what = AsValueObject(text);
    if (!IsText(where) || !IsText(what)) {
        return 0;
    }
    std::string_view rest = static_cast<const char*>(what->GetValue());
    for (std::size_t at = 0; (at = rest.find_first_not_of(kBlanks)) != std::string_view::npos;) {
        rest.remove_prefix(at);
        const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
        rest.remove_prefix(word.size());
        if (where->Cmp(CVALUE(std::string(word)), CVALUEOBJECT::ComparisonType::Contains,
                       CVALUEOBJECT::ComparisonOption::DiacriticInsensitive) == 0) {
            return 0;
        }
    }
    return 1;
}

void CSEARCHTEXTPREDICATE::Accept(CPREDICATEVISITOR& visitor) const {
    if (visitor.VisitPredicate(*this) != 0) {
        for (const OPERAND& operand : mOperands) {
            operand.GetExpression()->Accept(visitor);
        }
    }
    visitor.LeavePredicate(*this);
}

void CSEARCHTEXTPREDICATE::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(kElement);
    for (const OPERAND& operand : mOperands) {
        operand.GetExpression()->DoWriteState(writer);
    }
    writer.EndElement();
}

void CSEARCHTEXTPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(kElement);
    std::vector<OPERAND> operands;
    do {
        operands.emplace_back(CEXPRESSION::Create(reader));
    } while (reader.HasElement() != 0 && operands.size() < kMostOperands);
    reader.EndElement();
    mOperands = std::move(operands);
}

std::ostream& operator<<(std::ostream& out, const CSEARCHTEXTPREDICATE* predicate) {
    return DumpNode(out, "CSEARCHTEXTPREDICATE", predicate, &CSEARCHTEXTPREDICATE::GetPredicateType);
}

}  // namespace MLCore
