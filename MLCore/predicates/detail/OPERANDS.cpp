#include <MLCore/predicates/detail/OPERANDS.h>

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/predicates/CPREDICATEVISITOR.h>

#include <utility>

namespace MLCore {

void OPERANDS::Add(OPERAND operand) { mOperands[mCount++] = std::move(operand); }

void OPERANDS::Accept(const CPREDICATE& owner, CPREDICATEVISITOR& visitor) const {
    if (visitor.VisitPredicate(owner) != 0) {
        for (std::size_t index = 0; index < mCount; ++index) {
            mOperands[index].GetExpression()->Accept(visitor);
        }
    }
    visitor.LeavePredicate(owner);
}

void OPERANDS::Write(CKEYWRITER& writer) const {
    for (std::size_t index = 0; index < mCount; ++index) {
        mOperands[index].GetExpression()->DoWriteState(writer);
    }
}

void OPERANDS::Read(CKEYREADER& reader) {
    for (std::size_t index = 0; index < mCount; ++index) {
        mOperands[index] = OPERAND(CEXPRESSION::Create(reader));
    }
}

}  // namespace MLCore
