#include <MLCore/predicates/CCOMPARISONPREDICATE.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/detail/NodeDump.h>
#include <MLCore/values/ComparisonWords.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONPREDICATE)

namespace {

using OPTION = CVALUEOBJECT::ComparisonOption;
using TYPE = CVALUEOBJECT::ComparisonType;

constexpr const char* kOption = "compType";

/// The operands as failures name them.
struct ROLES {
    std::size_t count;
    const char* names[OPERANDS::kMost];
};

constexpr ROLES RolesOf(TYPE type) noexcept {
    switch (type) {
        case TYPE::Between:
            return {3, {"tested expression", "lower bound", "upper bound"}};
        case TYPE::In:
            return {2, {"tested expression", "set", "third operand"}};
        default:
            return {2, {"left operand", "right operand", "third operand"}};
    }
}

const char* ElementOf(TYPE type) {
    const COMPARISONWORDS* const words = WordsOf(type);
    if (words == nullptr) {
        FailWith(kErrValueType, "comparison type ", static_cast<int>(type), " is unknown, wanted 0 to ",
                 CVALUEOBJECT::kComparisonTypeCount - 1);
    }
    return words->element;
}

OPERANDS OperandsOf(TYPE type, std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> expressions) {
    const ROLES roles = RolesOf(type);
    const COMPARISONWORDS* const words = WordsOf(type);
    const char* const name = words != nullptr ? words->element : "unknown";
    OPERANDS operands;
    if (expressions.size() == 0) {
        while (operands.GetCount() < roles.count) {
            operands.Add(OPERAND::Null());
        }
        return operands;
    }
    Require(expressions.size() <= OPERANDS::kMost, kErrValueType, "the comparison ", Quoted(name), " has ",
            expressions.size(), " operands, wanted at most ", OPERANDS::kMost);
    for (const CSHAREOBJECTPTR<CEXPRESSION>& expression : expressions) {
        Require(!!expression, kErrNull, "the ", roles.names[operands.GetCount()], " of the comparison ", Quoted(name),
                " is null");
        operands.Add(OPERAND(expression));
    }
    return operands;
}

}  // namespace

CCOMPARISONPREDICATE::CCOMPARISONPREDICATE(TYPE type, OPTION option,
                                           std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> operands)
    : CPREDICATE(PredicateType::Comparison), mType(type), mOption(option), mOperands(OperandsOf(type, operands)) {}

CCOMPARISONPREDICATE::~CCOMPARISONPREDICATE() = default;

void CCOMPARISONPREDICATE::Accept(CPREDICATEVISITOR& visitor) const { mOperands.Accept(*this, visitor); }

void CCOMPARISONPREDICATE::InitFromKeyReader(CKEYREADER& reader) {
    mOption = OPTION::CaseSensitive;
    if (reader.HasAttribute(kOption) != 0) {
        const std::string& word = reader.GetAttribute(kOption);
        const auto* const found = std::find(std::begin(kOptionWords), std::end(kOptionWords), word);
        if (found == std::end(kOptionWords)) {
            reader.FailHere("the attribute '", kOption, "' of a comparison is ", Quoted(word), ", wanted ",
                            kOptionWords[0], ", ", kOptionWords[1], " or ", kOptionWords[2]);
        }
        mOption = static_cast<OPTION>(found - std::begin(kOptionWords));
    }
}

void CCOMPARISONPREDICATE::WriteToKeyWriter(CKEYWRITER& writer) const {
    const auto option = static_cast<std::size_t>(mOption);
    if (option != 0 && option < std::size(kOptionWords)) {
        writer.SetAttribute(kOption, kOptionWords[option]);
    }
}

void CCOMPARISONPREDICATE::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(ElementOf(mType));
    WriteToKeyWriter(writer);
    mOperands.Write(writer);
    writer.EndElement();
}

void CCOMPARISONPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(ElementOf(mType));
    InitFromKeyReader(reader);
    mOperands.Read(reader);
    reader.EndElement();
}

std::ostream& operator<<(std::ostream& out, const CCOMPARISONPREDICATE* predicate) {
    return DumpNode(out, "CCOMPARISONPREDICATE", predicate, &CCOMPARISONPREDICATE::GetComparisonType);
}

}  // namespace MLCore
