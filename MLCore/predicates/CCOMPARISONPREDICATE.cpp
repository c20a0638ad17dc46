#include <MLCore/predicates/CCOMPARISONPREDICATE.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <ostream>
#include <string>

namespace MLCore {

MLCORE_REGISTER_CLASS(CCOMPARISONPREDICATE)

namespace {

using OPTION = CVALUEOBJECT::ComparisonOption;

/// By comparison type.
constexpr const char* kElements[] = {"lesser", "lesserEq", "greater", "greaterEq", "equal",    "notEqual",
                                     "like",   "begins",   "ends",    "in",        "contains", "between"};

constexpr const char* kOption = "compType";
/// By option. The last spelling is that of all files.
constexpr const char* kOptions[] = {"caseSensitive", "caseInsensitive", "diacriticInsentive"};

}  // namespace

CCOMPARISONPREDICATE::CCOMPARISONPREDICATE(CVALUEOBJECT::ComparisonType type, CVALUEOBJECT::ComparisonOption option)
    : CPREDICATE(PredicateType::Comparison), mType(type), mOption(option) {}

CCOMPARISONPREDICATE::~CCOMPARISONPREDICATE() = default;

void CCOMPARISONPREDICATE::InitFromKeyReader(CKEYREADER& reader) {
    mOption = OPTION::CaseSensitive;
    if (reader.HasAttribute(kOption) != 0) {
        const auto* const found = std::find(std::begin(kOptions), std::end(kOptions), reader.GetAttribute(kOption));
        if (found == std::end(kOptions)) {
            FailOSErr(kErrValueType);
        }
        mOption = static_cast<OPTION>(found - std::begin(kOptions));
    }
}

void CCOMPARISONPREDICATE::WriteToKeyWriter(CKEYWRITER& writer) const {
    const auto option = static_cast<std::size_t>(mOption);
    if (option != 0 && option < std::size(kOptions)) {
        writer.SetAttribute(kOption, kOptions[option]);
    }
}

void CCOMPARISONPREDICATE::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(kElements[static_cast<std::size_t>(mType)]);
    WriteToKeyWriter(writer);
    WriteOperands(writer);
    writer.EndElement();
}

void CCOMPARISONPREDICATE::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(kElements[static_cast<std::size_t>(mType)]);
    InitFromKeyReader(reader);
    ReadOperands(reader);
    reader.EndElement();
}

std::ostream& operator<<(std::ostream& out, const CCOMPARISONPREDICATE* predicate) {
    out << "CCOMPARISONPREDICATE(";
    if (predicate != nullptr) {
        out << predicate->GetComparisonType();
    }
    return out << ')';
}

}  // namespace MLCore
