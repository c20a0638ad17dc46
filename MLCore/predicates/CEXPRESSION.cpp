#include <MLCore/predicates/CEXPRESSION.h>

#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/predicates/CFUNCTIONEXPRESSION.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CLISTEXPRESSION.h>
#include <MLCore/predicates/COBJECTEXPRESSION.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/predicates/CVARIABLEEXPRESSION.h>
#include <MLCore/predicates/detail/ELEMENTKINDS.h>
#include <MLCore/predicates/detail/NodeText.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CEXPRESSION)

CEXPRESSION::CEXPRESSION(ExpressionType type) noexcept : mExpressionType(type) {}

CEXPRESSION::~CEXPRESSION() = default;

void CEXPRESSION::Accept(CPREDICATEVISITOR& visitor) const { visitor.VisitExpression(*this); }

CSHAREOBJECTPTR<CEXPRESSION> CEXPRESSION::Create(CKEYREADER& reader) {
    static const ELEMENTKINDS gKinds = {{CKEYEXPRESSION::kElement, FactoryNameOf<CKEYEXPRESSION>()},
                                        {CLISTEXPRESSION::kElement, FactoryNameOf<CLISTEXPRESSION>()},
                                        {COBJECTEXPRESSION::kElement, FactoryNameOf<COBJECTEXPRESSION>()},
                                        {CVALUEEXPRESSION::kElement, FactoryNameOf<CVALUEEXPRESSION>()},
                                        {CVARIABLEEXPRESSION::kElement, FactoryNameOf<CVARIABLEEXPRESSION>()}};
    if (reader.GetElementName() == CFUNCTIONEXPRESSION::kElement) {
        // Only its user knows its class, so nobody could create it.
        reader.BeginElement(CFUNCTIONEXPRESSION::kElement);
        FailOSErr(kErrValueType);
    }
    return gKinds.Create<CEXPRESSION>(reader);
}

std::ostream& operator<<(std::ostream& out, const CEXPRESSION* expression) {
    const bool isKnown = DumpAsFirstOf<CKEYEXPRESSION, CVALUEEXPRESSION, CLISTEXPRESSION, CVARIABLEEXPRESSION,
                                       CFUNCTIONEXPRESSION, COBJECTEXPRESSION>(out, expression);
    return isKnown ? out : out << "CEXPRESSION()";
}

}  // namespace MLCore
