#include <MLCore/predicates/CCOMPARISONPREDICATE.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/detail/NodeText.h>
#include <MLCore/values/ComparisonWords.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONPREDICATE)

namespace {

using OPTION = CVALUEOBJECT::ComparisonOption;

/// By comparison type.
constexpr const char* kElements[] = {"lesser", "lesserEq", "greater", "greaterEq", "equal",    "notEqual",
                                     "like",   "begins",   "ends",    "in",        "contains", "between"};

constexpr const char* kOption = "compType";

const char* ElementOf(CVALUEOBJECT::ComparisonType type) {
    const auto index = static_cast<std::size_t>(type);
    if (index >= std::size(kElements)) {
        FailOSErr(kErrValueType);
    }
    return kElements[index];
}

}  // namespace

CCOMPARISONPREDICATE::CCOMPARISONPREDICATE(CVALUEOBJECT::ComparisonType type, CVALUEOBJECT::ComparisonOption option)
    : CPREDICATE(PredicateType::Comparison), mType(type), mOption(option) {}

CCOMPARISONPREDICATE::~CCOMPARISONPREDICATE() = default;

void CCOMPARISONPREDICATE::InitFromKeyReader(CKEYREADER& reader) {
    mOption = OPTION::CaseSensitive;
    if (reader.HasAttribute(kOption) != 0) {
        const auto* const found =
            std::find(std::begin(kOptionWords), std::end(kOptionWords), reader.GetAttribute(kOption));
        if (found == std::end(kOptionWords)) {
            FailOSErr(kErrValueType);
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
    WriteOperands(writer);
    writer.EndElement();
}

void CCOMPARISONPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(ElementOf(mType));
    InitFromKeyReader(reader);
    ReadOperands(reader);
    reader.EndElement();
}

std::ostream& operator<<(std::ostream& out, const CCOMPARISONPREDICATE* predicate) {
    return DumpNode(out, "CCOMPARISONPREDICATE", predicate, &CCOMPARISONPREDICATE::GetComparisonType);
}

}  // namespace MLCore
