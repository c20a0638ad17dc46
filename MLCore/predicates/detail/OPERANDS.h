#pragma once

#include <MLCore/predicates/CPREDICATEVISITOR.h>
#include <MLCore/predicates/detail/OPERAND.h>

#include <array>
#include <cstddef>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// The operands of a comparison, in the order in which they are shown, written and read.
template <std::size_t Count>
class OPERANDS {
public:
    [[nodiscard]] const OPERAND& operator[](std::size_t index) const noexcept { return mOperands[index]; }

    /// Fails with -100 when one is null.
    template <class... Expressions>
    void Set(const Expressions&... expressions) {
        static_assert(sizeof...(expressions) == Count);
        mOperands = {OPERAND(expressions)...};
    }
    void Accept(const CPREDICATE& owner, CPREDICATEVISITOR& visitor) const {
        if (visitor.VisitPredicate(owner) != 0) {
            for (const OPERAND& operand : mOperands) {
                operand.GetExpression()->Accept(visitor);
            }
        }
        visitor.LeavePredicate(owner);
    }
    void Write(CKEYWRITER& writer) const {
        for (const OPERAND& operand : mOperands) {
            operand.GetExpression()->DoWriteState(writer);
        }
    }
    void Read(CKEYREADER& reader) {
        for (OPERAND& operand : mOperands) {
            operand = OPERAND(CEXPRESSION::Create(reader));
        }
    }

private:
    std::array<OPERAND, Count> mOperands;
};

}  // namespace MLCore
