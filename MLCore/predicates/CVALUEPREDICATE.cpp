#include <MLCore/predicates/CVALUEPREDICATE.h>

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/detail/PredicateWords.h>

#include <ostream>

namespace MLCore {

MLCORE_REGISTER_CLASS(CVALUEPREDICATE)

CVALUEPREDICATE::CVALUEPREDICATE(int value) noexcept : CPREDICATE(PredicateType::Value), mValue(value) {}

CVALUEPREDICATE::~CVALUEPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CVALUEPREDICATE::Create(int value) {
    return AdoptObject<CPREDICATE>(new CVALUEPREDICATE(value));
}

int CVALUEPREDICATE::Evaluate(COBJECT*, CDICTIONARY&) const { return mValue; }

int CVALUEPREDICATE::Evaluate(COBJECT*) const { return mValue; }

void CVALUEPREDICATE::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(mValue != 0 ? kTrueElement : kFalseElement);
    writer.EndElement();
}

void CVALUEPREDICATE::DoInitState(CKEYREADER& reader) {
    const bool isTrue = reader.GetElementName() == kTrueElement;
    reader.BeginElement(isTrue ? kTrueElement : kFalseElement);
    reader.EndElement();
    mValue = isTrue ? 1 : 0;
}

std::ostream& operator<<(std::ostream& out, const CVALUEPREDICATE* predicate) {
    if (predicate == nullptr) {
        return out << "CVALUEPREDICATE()";
    }
    return out << (predicate->GetValue() != 0 ? "CVALUEPREDICATE(TRUE)" : "CVALUEPREDICATE(FALSE)");
}

}  // namespace MLCore
