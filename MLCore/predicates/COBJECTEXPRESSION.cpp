#include <MLCore/predicates/COBJECTEXPRESSION.h>

#include <MLCore/predicates/detail/NodeDump.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(COBJECTEXPRESSION)

COBJECTEXPRESSION::COBJECTEXPRESSION(const std::string& name) : TEXTEXPRESSION(ExpressionType::Object, name) {}

COBJECTEXPRESSION::~COBJECTEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> COBJECTEXPRESSION::Create(const std::string& name) {
    return AdoptObject<CEXPRESSION>(new COBJECTEXPRESSION(name));
}

CSHAREOBJECTPTR<COBJECT> COBJECTEXPRESSION::Evaluate(COBJECT*, CDICTIONARY&) { return nullptr; }

CSHAREOBJECTPTR<COBJECT> COBJECTEXPRESSION::Evaluate(COBJECT*) { return nullptr; }

std::ostream& operator<<(std::ostream& out, const COBJECTEXPRESSION* expression) {
    return DumpNode(out, "COBJECTEXPRESSION", expression, &COBJECTEXPRESSION::GetName);
}

}  // namespace MLCore
