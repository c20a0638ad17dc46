#include <MLCore/predicates/CFUNCTIONEXPRESSION.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/detail/ExpressionWords.h>
#include <MLCore/values/CMEMARRAY.h>

#include <ostream>

namespace MLCore {

MLCORE_REGISTER_CLASS(CFUNCTIONEXPRESSION)

CFUNCTIONEXPRESSION::CFUNCTIONEXPRESSION() : CEXPRESSION(ExpressionType::Function), mParameters(CMEMARRAY::Create()) {}

CFUNCTIONEXPRESSION::CFUNCTIONEXPRESSION(const std::string& name, CARRAY& parameters)
    : CEXPRESSION(ExpressionType::Function), mName(name), mParameters(parameters.Filter(nullptr)) {}

CFUNCTIONEXPRESSION::~CFUNCTIONEXPRESSION() = default;

void CFUNCTIONEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(WordsOf(ExpressionType::Function).element);
    FailWith(kErrValueType, "the function ", Quoted(mName), " cannot be written to a key stream, as no function can");
}

void CFUNCTIONEXPRESSION::DoInitState(CKEYREADER& reader) { FailToRead(reader); }

void CFUNCTIONEXPRESSION::FailToRead(CKEYREADER& reader) {
    reader.BeginElement(WordsOf(ExpressionType::Function).element);
    reader.FailHere("a function cannot be read from a key stream: only the application knows its class");
}

std::ostream& operator<<(std::ostream& out, const CFUNCTIONEXPRESSION* expression) {
    std::string text;
    if (expression != nullptr) {
        text = expression->GetName() + (expression->GetParameters().GetCount() != 0 ? "(...)" : "()");
    }
    return out << "CFUNCTIONEXPRESSION(" << text << ')';
}

}  // namespace MLCore
