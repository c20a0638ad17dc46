#include <MLCore/predicates/CPREDICATE.h>

#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CANDPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>
#include <MLCore/predicates/CNOTPREDICATE.h>
#include <MLCore/predicates/CORPREDICATE.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/CSEARCHTEXTPREDICATE.h>
#include <MLCore/predicates/CVALUEPREDICATE.h>
#include <MLCore/predicates/detail/ELEMENTKINDS.h>
#include <MLCore/predicates/detail/NodeText.h>

#include <cstddef>
#include <iterator>

namespace MLCore {

MLCORE_REGISTER_CLASS(CPREDICATE)

namespace {

constexpr const char* kTypeNames[] = {"Value", "Compound", "Comparison", "SearchText"};

}  // namespace

CPREDICATE::CPREDICATE(PredicateType type) noexcept : mPredicateType(type) {}

CPREDICATE::~CPREDICATE() = default;

void CPREDICATE::Accept(CPREDICATEVISITOR& visitor) const {
    visitor.VisitPredicate(*this);
    visitor.LeavePredicate(*this);
}

void CPREDICATE::DoWriteState(CKEYWRITER&) const { FailOSErr(kErrValueType); }

void CPREDICATE::DoInitState(CKEYREADER&) { FailOSErr(kErrValueType); }

CSHAREOBJECTPTR<CPREDICATE> CPREDICATE::Create(CKEYREADER& reader) {
    static const ELEMENTKINDS gKinds = {{"and", FactoryNameOf<CANDPREDICATE>()},
                                        {"or", FactoryNameOf<CORPREDICATE>()},
                                        {"not", FactoryNameOf<CNOTPREDICATE>()},
                                        {"true", FactoryNameOf<CVALUEPREDICATE>()},
                                        {"false", FactoryNameOf<CVALUEPREDICATE>()},
                                        {"lesser", FactoryNameOf<CLESSERPREDICATE>()},
                                        {"lesserEq", FactoryNameOf<CLESSEREQPREDICATE>()},
                                        {"greater", FactoryNameOf<CGREATERPREDICATE>()},
                                        {"greaterEq", FactoryNameOf<CGREATEREQPREDICATE>()},
                                        {"equal", FactoryNameOf<CEQUALPREDICATE>()},
                                        {"notEqual", FactoryNameOf<CNOTEQUALPREDICATE>()},
                                        {"like", FactoryNameOf<CLIKEPREDICATE>()},
                                        {"begins", FactoryNameOf<CBEGINSPREDICATE>()},
                                        {"ends", FactoryNameOf<CENDSPREDICATE>()},
                                        {"contains", FactoryNameOf<CCONTAINSPREDICATE>()},
                                        {"in", FactoryNameOf<CCOMPARISONINPREDICATE>()},
                                        {"between", FactoryNameOf<CCOMPARISONBETWEENPREDICATE>()},
                                        {"searchText", FactoryNameOf<CSEARCHTEXTPREDICATE>()}};
    return gKinds.Create<CPREDICATE>(reader);
}

std::ostream& operator<<(std::ostream& out, CPREDICATE::PredicateType type) {
    const auto index = static_cast<std::size_t>(type);
    return index < std::size(kTypeNames) ? out << "PredicateType::" << kTypeNames[index] : out;
}

std::ostream& operator<<(std::ostream& out, const CPREDICATE* predicate) {
    return DumpAsFirstOf<CVALUEPREDICATE, CCOMPOUNDPREDICATE, CCOMPARISONPREDICATE, CSEARCHTEXTPREDICATE>(out,
                                                                                                          predicate)
               ? out
               : DumpNode(out, "CPREDICATE", predicate, &CPREDICATE::GetPredicateType);
}

}  // namespace MLCore
