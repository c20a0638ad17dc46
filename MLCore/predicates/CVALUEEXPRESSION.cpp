#include <MLCore/predicates/CVALUEEXPRESSION.h>

#include <MLCore/predicates/detail/ExpressionWords.h>
#include <MLCore/predicates/detail/ValueElement.h>
#include <MLCore/values/CVALUEOBJECT.h>
#include <MLCore/values/ValueText.h>

#include <ostream>

namespace MLCore {

MLCORE_REGISTER_CLASS(CVALUEEXPRESSION)

CVALUEEXPRESSION::CVALUEEXPRESSION(const CVALUE& value) : CEXPRESSION(ExpressionType::Value), mValue(value) {}

CVALUEEXPRESSION::~CVALUEEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CVALUEEXPRESSION::Create(const CVALUE& value) {
    return AdoptObject<CEXPRESSION>(new CVALUEEXPRESSION(value));
}

CSHAREOBJECTPTR<COBJECT> CVALUEEXPRESSION::Evaluate(COBJECT* object, CDICTIONARY&) {
    return CVALUEEXPRESSION::Evaluate(object);
}

CSHAREOBJECTPTR<COBJECT> CVALUEEXPRESSION::Evaluate(COBJECT*) { return CVALUEOBJECT::Create(mValue); }

void CVALUEEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    WriteValueElement(writer, WordsOf(ExpressionType::Value).element, mValue);
}

void CVALUEEXPRESSION::DoInitState(CKEYREADER& reader) {
    mValue = ReadValueElement(reader, WordsOf(ExpressionType::Value).element);
}

std::ostream& operator<<(std::ostream& out, const CVALUEEXPRESSION* expression) {
    std::string text;
    if (expression != nullptr) {
        AppendValueText(text, expression->GetValue(), false);
    }
    return out << "CVALUEEXPRESSION(" << text << ')';
}

}  // namespace MLCore
