#include <MLCore/predicates/CKEYEXPRESSION.h>

#include <MLCore/predicates/detail/NodeText.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CKEYEXPRESSION)

namespace {

constexpr const char* kAttribute = "key";

}  // namespace

CKEYEXPRESSION::CKEYEXPRESSION() : CEXPRESSION(ExpressionType::Key) {}

CKEYEXPRESSION::CKEYEXPRESSION(const std::string& key) : CEXPRESSION(ExpressionType::Key), mKey(key) {}

CKEYEXPRESSION::~CKEYEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CKEYEXPRESSION::Create(const std::string& key) {
    return AdoptObject<CEXPRESSION>(new CKEYEXPRESSION(key));
}

CSHAREOBJECTPTR<COBJECT> CKEYEXPRESSION::Evaluate(COBJECT* object, CDICTIONARY&) {
    return CKEYEXPRESSION::Evaluate(object);
}

CSHAREOBJECTPTR<COBJECT> CKEYEXPRESSION::Evaluate(COBJECT* object) {
    return object != nullptr ? object->GetKeyPathValue(mKey) : nullptr;
}

void CKEYEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    WriteAttributeElement(writer, kElement, kAttribute, mKey);
}

void CKEYEXPRESSION::DoInitState(CKEYREADER& reader) { mKey = ReadAttributeElement(reader, kElement, kAttribute); }

std::ostream& operator<<(std::ostream& out, const CKEYEXPRESSION* expression) {
    return DumpNode(out, "CKEYEXPRESSION", expression, &CKEYEXPRESSION::GetKey);
}

}  // namespace MLCore
