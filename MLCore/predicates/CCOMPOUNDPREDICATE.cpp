#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/detail/NodeDump.h>
#include <MLCore/predicates/detail/PredicateWords.h>
#include <MLCore/predicates/detail/TypedArray.h>

#include <cstddef>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPOUNDPREDICATE)

namespace {

constexpr const char* kWhat = "a compound predicate";
constexpr const char* kWrongCount = "a predicate 'not' has one member; found members: ";

const char* ElementOf(CCOMPOUNDPREDICATE::Type type) {
    const COMPOUNDWORDS* const words = WordsOf(type);
    if (words == nullptr) {
        FailWith(kErrValueType, "compound type ", static_cast<int>(type),
                 " is unknown, wanted 0 (AND), 1 (OR) or 2 (NOT)");
    }
    return words->element;
}

}  // namespace

CCOMPOUNDPREDICATE::CCOMPOUNDPREDICATE(Type type)
    : CPREDICATE(PredicateType::Compound), mType(type), mMembers(std::make_shared<MEMBERS>()) {
    mMembers->array = CMEMARRAY::Create();
}

CCOMPOUNDPREDICATE::CCOMPOUNDPREDICATE(Type type, const CARRAY& predicates)
    : CPREDICATE(PredicateType::Compound), mType(type), mMembers(std::make_shared<MEMBERS>()) {
    mMembers->array = CopyOf<CPREDICATE>(predicates, kWhat);
    ForEachOf<CPREDICATE>(GetPredicates(), [this](const CPREDICATE& member) { mMembers->pointers.push_back(&member); });
}

CCOMPOUNDPREDICATE::CCOMPOUNDPREDICATE(Type type, std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates)
    : CCOMPOUNDPREDICATE(type) {
    for (const CSHAREOBJECTPTR<CPREDICATE>& predicate : predicates) {
        AddPredicate(predicate);
    }
}

CCOMPOUNDPREDICATE::~CCOMPOUNDPREDICATE() = default;

void CCOMPOUNDPREDICATE::AddPredicate(CSHAREOBJECTPTR<CPREDICATE> predicate) {
    RequireElement(predicate, GetPredicates().GetCount(), kWhat);
    mMembers->pointers.push_back(predicate);
    try {
        mMembers->array->AddObject(predicate);
    } catch (...) {
        mMembers->pointers.pop_back();
        throw;
    }
}

// AND ends at the first member that is false, OR at the first that is true; NOT at its one member.
template <class Evaluation>
int CCOMPOUNDPREDICATE::Decide(const Evaluation& evaluate) const {
    const bool deciding = mType == Type::OR;
    const std::vector<const CPREDICATE*>& members = mMembers->pointers;
    for (std::size_t index = 0; index < members.size(); ++index) {
        const bool isTrue = evaluate(*members[index]) != 0;
        if (mType == Type::NOT) {
            return isTrue ? 0 : 1;
        }
        if (isTrue == deciding) {
            return deciding ? 1 : 0;
        }
    }
    return deciding ? 0 : 1;
}

int CCOMPOUNDPREDICATE::Evaluate(COBJECT* object, CDICTIONARY& variables) const {
    return Decide([&](const CPREDICATE& member) { return member.Evaluate(object, variables); });
}

int CCOMPOUNDPREDICATE::Evaluate(COBJECT* object) const {
    return Decide([&](const CPREDICATE& member) { return member.Evaluate(object); });
}

void CCOMPOUNDPREDICATE::Accept(CPREDICATEVISITOR& visitor) const {
    if (visitor.VisitPredicate(*this) != 0) {
        ForEachOf<CPREDICATE>(GetPredicates(), [&](const CPREDICATE& member) { member.Accept(visitor); });
    }
    visitor.LeavePredicate(*this);
}

bool CCOMPOUNDPREDICATE::HasRightCount() const { return mType != Type::NOT || GetPredicates().GetCount() == 1; }

void CCOMPOUNDPREDICATE::DoWriteState(CKEYWRITER& writer) const {
    Require(HasRightCount(), kErrValueType, kWrongCount, GetPredicates().GetCount());
    writer.BeginElement(ElementOf(mType));
    ForEachOf<CPREDICATE>(GetPredicates(), [&](const CPREDICATE& member) { member.DoWriteState(writer); });
    writer.EndElement();
}

void CCOMPOUNDPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(ElementOf(mType));
    while (reader.HasElement() != 0) {
        AddPredicate(CPREDICATE::Create(reader));
    }
    if (!HasRightCount()) {
        reader.FailHere(kWrongCount, GetPredicates().GetCount());
    }
    reader.EndElement();
}

std::ostream& operator<<(std::ostream& out, CCOMPOUNDPREDICATE::Type type) {
    const COMPOUNDWORDS* const words = WordsOf(type);
    return words != nullptr ? out << words->dump : out;
}

std::ostream& operator<<(std::ostream& out, const CCOMPOUNDPREDICATE* predicate) {
    return DumpNode(out, "CCOMPOUNDPREDICATE", predicate, &CCOMPOUNDPREDICATE::GetType);
}

}  // namespace MLCore
