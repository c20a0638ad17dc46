#include <MLCore/predicates/CVARIABLEEXPRESSION.h>

#include <MLCore/predicates/detail/NodeText.h>
#include <MLCore/values/CDICTIONARY.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CVARIABLEEXPRESSION)

namespace {

constexpr const char* kAttribute = "name";

}  // namespace

CVARIABLEEXPRESSION::CVARIABLEEXPRESSION() : CEXPRESSION(ExpressionType::Variable) {}

CVARIABLEEXPRESSION::CVARIABLEEXPRESSION(const std::string& name)
    : CEXPRESSION(ExpressionType::Variable), mName(name) {}

CVARIABLEEXPRESSION::~CVARIABLEEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CVARIABLEEXPRESSION::Create(const std::string& name) {
    return AdoptObject<CEXPRESSION>(new CVARIABLEEXPRESSION(name));
}

CSHAREOBJECTPTR<COBJECT> CVARIABLEEXPRESSION::Evaluate(COBJECT*, CDICTIONARY& variables) {
    return variables.GetKeyValue(mName);
}

CSHAREOBJECTPTR<COBJECT> CVARIABLEEXPRESSION::Evaluate(COBJECT*) { return nullptr; }

void CVARIABLEEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    WriteAttributeElement(writer, kElement, kAttribute, mName);
}

void CVARIABLEEXPRESSION::DoInitState(CKEYREADER& reader) {
    mName = ReadAttributeElement(reader, kElement, kAttribute);
}

std::ostream& operator<<(std::ostream& out, const CVARIABLEEXPRESSION* expression) {
    return DumpNode(out, "CVARIABLEEXPRESSION", expression, &CVARIABLEEXPRESSION::GetName);
}

}  // namespace MLCore
