#include <MLCore/predicates/CEXPRESSION.h>

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/Dispatch.h>
#include <MLCore/predicates/detail/ELEMENTKINDS.h>
#include <MLCore/predicates/detail/ExpressionWords.h>

#include <ostream>

namespace MLCore {

MLCORE_REGISTER_CLASS(CEXPRESSION)

CEXPRESSION::CEXPRESSION(ExpressionType type) noexcept : mExpressionType(type) {}

CEXPRESSION::~CEXPRESSION() = default;

void CEXPRESSION::Accept(CPREDICATEVISITOR& visitor) const { visitor.VisitExpression(*this); }

CSHAREOBJECTPTR<CEXPRESSION> CEXPRESSION::Create(CKEYREADER& reader) {
    static const ELEMENTKINDS gKinds(
        "an expression", {{WordsOf(ExpressionType::Key).element, FactoryNameOf<CKEYEXPRESSION>()},
                          {WordsOf(ExpressionType::List).element, FactoryNameOf<CLISTEXPRESSION>()},
                          {WordsOf(ExpressionType::Object).element, FactoryNameOf<COBJECTEXPRESSION>()},
                          {WordsOf(ExpressionType::Value).element, FactoryNameOf<CVALUEEXPRESSION>()},
                          {WordsOf(ExpressionType::Variable).element, FactoryNameOf<CVARIABLEEXPRESSION>()}});
    if (reader.GetElementName() == WordsOf(ExpressionType::Function).element) {
        CFUNCTIONEXPRESSION::FailToRead(reader);
    }
    return gKinds.Create<CEXPRESSION>(reader);
}

std::ostream& operator<<(std::ostream& out, const CEXPRESSION* expression) {
    if (expression == nullptr) {
        return out << "CEXPRESSION()";
    }
    return Dispatch(
        *expression, [&out](const auto& own) -> std::ostream& { return out << &own; },
        [&out](const CEXPRESSION&) -> std::ostream& { return out << "CEXPRESSION()"; });
}

}  // namespace MLCore
