#include <MLCore/predicates/CKEYEXPRESSION.h>

#include <MLCore/predicates/detail/NodeDump.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CKEYEXPRESSION)

CKEYEXPRESSION::CKEYEXPRESSION(const std::string& key) : TEXTEXPRESSION(ExpressionType::Key, key) {}

CKEYEXPRESSION::~CKEYEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CKEYEXPRESSION::Create(const std::string& key) {
    return AdoptObject<CEXPRESSION>(new CKEYEXPRESSION(key));
}

CSHAREOBJECTPTR<COBJECT> CKEYEXPRESSION::Evaluate(COBJECT* object, CDICTIONARY&) {
    return CKEYEXPRESSION::Evaluate(object);
}

CSHAREOBJECTPTR<COBJECT> CKEYEXPRESSION::Evaluate(COBJECT* object) {
    return object != nullptr ? object->GetKeyPathValue(GetKey()) : nullptr;
}

std::ostream& operator<<(std::ostream& out, const CKEYEXPRESSION* expression) {
    return DumpNode(out, "CKEYEXPRESSION", expression, &CKEYEXPRESSION::GetKey);
}

}  // namespace MLCore
