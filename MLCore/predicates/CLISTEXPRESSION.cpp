#include <MLCore/predicates/CLISTEXPRESSION.h>

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/detail/TypedArray.h>

#include <ostream>

namespace MLCore {

MLCORE_REGISTER_CLASS(CLISTEXPRESSION)

namespace {

template <class Evaluation>
CSHAREOBJECTPTR<COBJECT> EvaluateEach(const CARRAY& expressions, const Evaluation& evaluate) {
    const CSHAREOBJECTPTR<CARRAY> values = CMEMARRAY::Create();
    ForEachOf<CEXPRESSION>(expressions, [&](CEXPRESSION& each) { values->AddObject(evaluate(each)); });
    return values;
}

}  // namespace

CLISTEXPRESSION::CLISTEXPRESSION() : CLISTEXPRESSION(CMEMARRAY::Create()) {}

CLISTEXPRESSION::CLISTEXPRESSION(CSHAREOBJECTPTR<CARRAY> expressions)
    : CEXPRESSION(ExpressionType::List), mExpressions((FailNull(expressions), CopyOf<CEXPRESSION>(*expressions))) {}

CLISTEXPRESSION::~CLISTEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create() { return AdoptObject<CEXPRESSION>(new CLISTEXPRESSION); }

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create(const CARRAY& expressions) {
    return AdoptObject<CEXPRESSION>(new CLISTEXPRESSION(CopyOf<CEXPRESSION>(expressions)));
}

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create(CSHAREOBJECTPTR<CEXPRESSION> first,
                                                     CSHAREOBJECTPTR<CEXPRESSION> second) {
    return Create({first, second});
}

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create(std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> expressions) {
    return AdoptObject<CEXPRESSION>(new CLISTEXPRESSION(ArrayOf<CEXPRESSION>(expressions)));
}

CSHAREOBJECTPTR<COBJECT> CLISTEXPRESSION::Evaluate(COBJECT* object, CDICTIONARY& variables) {
    return EvaluateEach(*mExpressions, [&](CEXPRESSION& each) { return each.Evaluate(object, variables); });
}

CSHAREOBJECTPTR<COBJECT> CLISTEXPRESSION::Evaluate(COBJECT* object) {
    return EvaluateEach(*mExpressions, [&](CEXPRESSION& each) { return each.Evaluate(object); });
}

void CLISTEXPRESSION::Accept(CPREDICATEVISITOR& visitor) const {
    if (visitor.VisitExpression(*this) != 0) {
        ForEachOf<CEXPRESSION>(*mExpressions, [&](const CEXPRESSION& each) { each.Accept(visitor); });
    }
}

void CLISTEXPRESSION::DoWriteState(CKEYWRITER& writer) const {
    writer.BeginElement(kElement);
    ForEachOf<CEXPRESSION>(*mExpressions, [&](const CEXPRESSION& each) { each.DoWriteState(writer); });
    writer.EndElement();
}

void CLISTEXPRESSION::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(kElement);
    while (reader.HasElement() != 0) {
        mExpressions->AddObject(CEXPRESSION::Create(reader));
    }
    reader.EndElement();
}

std::ostream& operator<<(std::ostream& out, const CLISTEXPRESSION* expression) {
    out << "CLISTEXPRESSION(";
    if (expression != nullptr) {
        ForEachOf<CEXPRESSION>(expression->GetExpressions(), [&out](const CEXPRESSION& each) { out << &each << ','; });
    }
    return out << ')';
}

}  // namespace MLCore
