#include <MLCore/predicates/CSEARCHTEXTPREDICATE.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/detail/NodeDump.h>
#include <MLCore/predicates/detail/PredicateWords.h>
#include <MLCore/text/Blanks.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <string_view>

namespace MLCore {

MLCORE_REGISTER_CLASS(CSEARCHTEXTPREDICATE)

namespace {

constexpr std::size_t kMostOperands = 2;

bool IsText(const CVALUEOBJECT* object) {
    return object != nullptr && object->GetValue().GetType() == CVALUE::Type::String;
}

OPERAND OperandOf(const CSHAREOBJECTPTR<CEXPRESSION>& expression, const char* role) {
    Require(!!expression, kErrNull, "the ", role, " of a search for words is null");
    return OPERAND(expression);
}

// Each word of `words` occurs in `where`.
bool HoldsWords(const CVALUEOBJECT& where, std::string_view words) {
    for (std::size_t at = 0; (at = words.find_first_not_of(kBlanks)) != std::string_view::npos;) {
        words.remove_prefix(at);
        const std::string_view word = words.substr(0, words.find_first_of(kBlanks));
        words.remove_prefix(word.size());
        if (where.Cmp(CVALUE(std::string(word)), CVALUEOBJECT::ComparisonType::Contains,
                      CVALUEOBJECT::ComparisonOption::DiacriticInsensitive) == 0) {
            return false;
        }
    }
    return true;
}

}  // namespace

CSEARCHTEXTPREDICATE::CSEARCHTEXTPREDICATE() : CPREDICATE(PredicateType::SearchText) { mOperands.Add(OPERAND::Null()); }

CSEARCHTEXTPREDICATE::CSEARCHTEXTPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& text)
    : CPREDICATE(PredicateType::SearchText) {
    mOperands.Add(OperandOf(text, "text"));
}

CSEARCHTEXTPREDICATE::CSEARCHTEXTPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& field,
                                           const CSHAREOBJECTPTR<CEXPRESSION>& text)
    : CPREDICATE(PredicateType::SearchText) {
    mOperands.Add(OperandOf(field, "field"));
    mOperands.Add(OperandOf(text, "text"));
}

CSEARCHTEXTPREDICATE::~CSEARCHTEXTPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CSEARCHTEXTPREDICATE::Create(const CSHAREOBJECTPTR<CEXPRESSION>& text) {
    return AdoptObject<CPREDICATE>(new CSEARCHTEXTPREDICATE(text));
}

CSHAREOBJECTPTR<CPREDICATE> CSEARCHTEXTPREDICATE::Create(const CSHAREOBJECTPTR<CEXPRESSION>& field,
                                                         const CSHAREOBJECTPTR<CEXPRESSION>& text) {
    return AdoptObject<CPREDICATE>(new CSEARCHTEXTPREDICATE(field, text));
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
    COBJECT* const field = mOperands[0].Evaluate(subject, holders[0]);
    COBJECT* const text = TextOperand().Evaluate(subject, holders[1]);
    const CVALUEOBJECT* const where = AsValueObject(field);
    const CVALUEOBJECT* const words = AsValueObject(text);
    const bool isFound =
        IsText(where) && IsText(words) && HoldsWords(*where, static_cast<const char*>(words->GetValue()));
    return isFound ? 1 : 0;
}

void CSEARCHTEXTPREDICATE::Accept(CPREDICATEVISITOR& visitor) const { mOperands.Accept(*this, visitor); }

void CSEARCHTEXTPREDICATE::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(kSearchTextElement);
    mOperands.Write(writer);
    writer.EndElement();
}

void CSEARCHTEXTPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(kSearchTextElement);
    OPERANDS operands;
    do {
        operands.Add(OPERAND(CEXPRESSION::Create(reader)));
    } while (reader.HasElement() != 0 && operands.GetCount() < kMostOperands);
    reader.EndElement();
    mOperands = operands;
}

std::ostream& operator<<(std::ostream& out, const CSEARCHTEXTPREDICATE* predicate) {
    return DumpNode(out, "CSEARCHTEXTPREDICATE", predicate, &CSEARCHTEXTPREDICATE::GetPredicateType);
}

}  // namespace MLCore
