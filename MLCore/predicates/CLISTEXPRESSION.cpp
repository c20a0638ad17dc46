#include <MLCore/predicates/CLISTEXPRESSION.h>

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/detail/ExpressionWords.h>
#include <MLCore/predicates/detail/TypedArray.h>

#include <ostream>
#include <utility>

namespace MLCore {

MLCORE_REGISTER_CLASS(CLISTEXPRESSION)

namespace {

constexpr const char* kWhat = "a list of expressions";

template <class Evaluation>
CSHAREOBJECTPTR<COBJECT> EvaluateEach(const CARRAY& expressions, const Evaluation& evaluate) {
    const CSHAREOBJECTPTR<CARRAY> values = CMEMARRAY::Create();
    ForEachOf<CEXPRESSION>(expressions, [&](CEXPRESSION& each) { values->AddObject(evaluate(each)); });
    return values;
}

}  // namespace

CLISTEXPRESSION::CLISTEXPRESSION() : CEXPRESSION(ExpressionType::List), mExpressions(CMEMARRAY::Create()) {}

CLISTEXPRESSION::CLISTEXPRESSION(const CARRAY& expressions)
    : CEXPRESSION(ExpressionType::List), mExpressions(CopyOf<CEXPRESSION>(expressions, kWhat)) {}

CLISTEXPRESSION::~CLISTEXPRESSION() = default;

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create() { return AdoptObject<CEXPRESSION>(new CLISTEXPRESSION); }

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create(const CARRAY& expressions) {
    return AdoptObject<CEXPRESSION>(new CLISTEXPRESSION(expressions));
}

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create(CSHAREOBJECTPTR<CEXPRESSION> first,
                                                     CSHAREOBJECTPTR<CEXPRESSION> second) {
    return Create({std::move(first), std::move(second)});
}

CSHAREOBJECTPTR<CEXPRESSION> CLISTEXPRESSION::Create(std::initializer_list<CSHAREOBJECTPTR<CEXPRESSION>> expressions) {
    const CSHAREOBJECTPTR<CLISTEXPRESSION> list = AdoptObject(new CLISTEXPRESSION);
    for (const CSHAREOBJECTPTR<CEXPRESSION>& expression : expressions) {
        RequireElement(expression, list->mExpressions->GetCount(), kWhat);
        list->mExpressions->AddObject(expression);
    }
    return list;
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
    writer.BeginElement(WordsOf(ExpressionType::List).element);
    ForEachOf<CEXPRESSION>(*mExpressions, [&](const CEXPRESSION& each) { each.DoWriteState(writer); });
    writer.EndElement();
}

void CLISTEXPRESSION::DoInitState(CKEYREADER& reader) {
    reader.BeginElement(WordsOf(ExpressionType::List).element);
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
