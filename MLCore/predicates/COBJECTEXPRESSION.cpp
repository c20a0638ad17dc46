#include <MLCore/predicates/COBJECTEXPRESSION.h>

#include <MLCore/predicates/detail/NodeText.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(COBJECTEXPRESSION)

namespace {

constexpr const char* kAttribute = "object";

}  // namespace

COBJECTEXPRESSION::COBJECTEXPRESSION() : CEXPRESSION(ExpressionType::Object) {}

COBJECTEXPRESSION::COBJECTEXPRESSION(const std::string& name) : CEXPRESSION(ExpressionType::Object), mName(name) {}

COBJECTEXPRESSION::~COBJECTEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> COBJECTEXPRESSION::Create(const std::string& name) {
    return AdoptObject<CEXPRESSION>(new COBJECTEXPRESSION(name));
}

CSHAREOBJECTPTR<COBJECT> COBJECTEXPRESSION::Evaluate(COBJECT*, CDICTIONARY&) { return nullptr; }

CSHAREOBJECTPTR<COBJECT> COBJECTEXPRESSION::Evaluate(COBJECT*) { return nullptr; }

void COBJECTEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    WriteAttributeElement(writer, kElement, kAttribute, mName);
}

void COBJECTEXPRESSION::DoInitState(CKEYREADER& reader) { mName = ReadAttributeElement(reader, kElement, kAttribute); }

std::ostream& operator<<(std::ostream& out, const COBJECTEXPRESSION* expression) {
    return DumpNode(out, "COBJECTEXPRESSION", expression, &COBJECTEXPRESSION::GetName);
}

}  // namespace MLCore
