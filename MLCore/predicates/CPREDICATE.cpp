#include <MLCore/predicates/CPREDICATE.h>

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/EnumTable.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/Dispatch.h>
#include <MLCore/predicates/detail/ELEMENTKINDS.h>
#include <MLCore/predicates/detail/NodeDump.h>
#include <MLCore/predicates/detail/PredicateWords.h>
#include <MLCore/values/ComparisonWords.h>

#include <cstddef>
#include <iterator>
#include <utility>

namespace MLCore {

MLCORE_REGISTER_CLASS(CPREDICATE)

namespace {

struct TYPENAME {
    CPREDICATE::PredicateType type;
    const char* name;
};
constexpr TYPENAME kTypeNames[] = {
    {CPREDICATE::PredicateType::Value, "PredicateType::Value"},
    {CPREDICATE::PredicateType::Compound, "PredicateType::Compound"},
    {CPREDICATE::PredicateType::Comparison, "PredicateType::Comparison"},
    {CPREDICATE::PredicateType::SearchText, "PredicateType::SearchText"},
};
static_assert(IsIndexedBy(kTypeNames, &TYPENAME::type, CPREDICATE::kPredicateTypeCount));

/// The element of a comparison or compound type, with the class that reads it.
template <class Class, class Type>
std::pair<const std::string, std::string> KindOf(Type type) {
    return {WordsOf(type)->element, FactoryNameOf<Class>()};
}

}  // namespace

CPREDICATE::CPREDICATE(PredicateType type) noexcept : mPredicateType(type) {}

CPREDICATE::~CPREDICATE() = default;

void CPREDICATE::Accept(CPREDICATEVISITOR& visitor) const {
    visitor.VisitPredicate(*this);
    visitor.LeavePredicate(*this);
}

void CPREDICATE::DoWriteState(CKEYWRITER&) const {
    FailWith(kErrValueType, "the class ", GetClassName(), " cannot be written to a key stream");
}

void CPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.FailHere("the class ", GetClassName(), " cannot be read from a key stream");
}

CSHAREOBJECTPTR<CPREDICATE> CPREDICATE::Create(CKEYREADER& reader) {
    using COMPARISON = CVALUEOBJECT::ComparisonType;
    using COMPOUND = CCOMPOUNDPREDICATE::Type;
    static const ELEMENTKINDS gKinds("a predicate", {KindOf<CANDPREDICATE>(COMPOUND::AND),
                                                     KindOf<CORPREDICATE>(COMPOUND::OR),
                                                     KindOf<CNOTPREDICATE>(COMPOUND::NOT),
                                                     {kFalseElement, FactoryNameOf<CVALUEPREDICATE>()},
                                                     {kTrueElement, FactoryNameOf<CVALUEPREDICATE>()},
                                                     KindOf<CLESSERPREDICATE>(COMPARISON::Lesser),
                                                     KindOf<CLESSEREQPREDICATE>(COMPARISON::LesserEqual),
                                                     KindOf<CGREATERPREDICATE>(COMPARISON::Greater),
                                                     KindOf<CGREATEREQPREDICATE>(COMPARISON::GreaterEqual),
                                                     KindOf<CEQUALPREDICATE>(COMPARISON::Equal),
                                                     KindOf<CNOTEQUALPREDICATE>(COMPARISON::NotEqual),
                                                     KindOf<CLIKEPREDICATE>(COMPARISON::Like),
                                                     KindOf<CBEGINSPREDICATE>(COMPARISON::Begins),
                                                     KindOf<CENDSPREDICATE>(COMPARISON::Ends),
                                                     KindOf<CCONTAINSPREDICATE>(COMPARISON::Contains),
                                                     KindOf<CCOMPARISONINPREDICATE>(COMPARISON::In),
                                                     KindOf<CCOMPARISONBETWEENPREDICATE>(COMPARISON::Between),
                                                     {kSearchTextElement, FactoryNameOf<CSEARCHTEXTPREDICATE>()}});
    return gKinds.Create<CPREDICATE>(reader);
}

std::ostream& operator<<(std::ostream& out, CPREDICATE::PredicateType type) {
    const auto index = static_cast<std::size_t>(type);
    return index < std::size(kTypeNames) ? out << kTypeNames[index].name : out;
}

std::ostream& operator<<(std::ostream& out, const CPREDICATE* predicate) {
    const auto dump = [&out](const CPREDICATE* node) -> std::ostream& {
        return DumpNode(out, "CPREDICATE", node, &CPREDICATE::GetPredicateType);
    };
    if (predicate == nullptr) {
        return dump(nullptr);
    }
    return Dispatch(
        *predicate, [&out](const auto& own) -> std::ostream& { return out << &own; },
        [&dump](const CPREDICATE& other) -> std::ostream& { return dump(&other); });
}

}  // namespace MLCore
