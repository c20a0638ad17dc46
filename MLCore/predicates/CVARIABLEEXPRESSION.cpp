#include <MLCore/predicates/CVARIABLEEXPRESSION.h>

#include <MLCore/predicates/detail/NodeDump.h>
#include <MLCore/values/CDICTIONARY.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CVARIABLEEXPRESSION)

CVARIABLEEXPRESSION::CVARIABLEEXPRESSION(const std::string& name) : TEXTEXPRESSION(ExpressionType::Variable, name) {}

CVARIABLEEXPRESSION::~CVARIABLEEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CVARIABLEEXPRESSION::Create(const std::string& name) {
    return AdoptObject<CEXPRESSION>(new CVARIABLEEXPRESSION(name));
}

CSHAREOBJECTPTR<COBJECT> CVARIABLEEXPRESSION::Evaluate(COBJECT*, CDICTIONARY& variables) {
    return variables.GetKeyValue(GetName());
}

CSHAREOBJECTPTR<COBJECT> CVARIABLEEXPRESSION::Evaluate(COBJECT*) { return nullptr; }

std::ostream& operator<<(std::ostream& out, const CVARIABLEEXPRESSION* expression) {
    return DumpNode(out, "CVARIABLEEXPRESSION", expression, &CVARIABLEEXPRESSION::GetName);
}

}  // namespace MLCore
