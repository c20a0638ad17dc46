#include <MLCore/predicates/CFUNCTIONEXPRESSION.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/values/CMEMARRAY.h>

#include <ostream>

namespace MLCore {

MLCORE_REGISTER_CLASS(CFUNCTIONEXPRESSION)

CFUNCTIONEXPRESSION::CFUNCTIONEXPRESSION() : CEXPRESSION(ExpressionType::Function), mParameters(CMEMARRAY::Create()) {}

CFUNCTIONEXPRESSION::CFUNCTIONEXPRESSION(const std::string& name, CARRAY& parameters)
    : CEXPRESSION(ExpressionType::Function), mName(name), mParameters(parameters.Filter(nullptr)) {}

CFUNCTIONEXPRESSION::~CFUNCTIONEXPRESSION() = default;

void CFUNCTIONEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(kElement);
    FailOSErr(kErrValueType);
}

void CFUNCTIONEXPRESSION::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(kElement);
    FailOSErr(kErrValueType);
}

std::ostream& operator<<(std::ostream& out, const CFUNCTIONEXPRESSION* expression) {
    std::string text;
    if (expression != nullptr) {
        text = expression->GetName() + (expression->GetParameters().GetCount() != 0 ? "(...)" : "()");
    }
    return out << "CFUNCTIONEXPRESSION(" << text << ')';
}

}  // namespace MLCore
