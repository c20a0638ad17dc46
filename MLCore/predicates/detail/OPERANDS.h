#pragma once

#include <MLCore/predicates/detail/OPERAND.h>

#include <array>
#include <cstddef>

namespace MLCore {

class CPREDICATE;

/// The operands of a predicate, in the order in which they are shown, written and read.
class OPERANDS {
public:
    static constexpr std::size_t kMost = 3;

    [[nodiscard]] std::size_t GetCount() const noexcept { return mCount; }
    /// `index` must be below GetCount().
    [[nodiscard]] const OPERAND& operator[](std::size_t index) const noexcept { return mOperands[index]; }

    /// There must be fewer than kMost.
    void Add(OPERAND operand);
    /// Shows `owner`, which holds them, and then the operands if the visitor asks for them.
    void Accept(const CPREDICATE& owner, CPREDICATEVISITOR& visitor) const;
    void Write(CKEYWRITER& writer) const;
    /// Reads as many operands as there are.
    void Read(CKEYREADER& reader);

private:
    std::array<OPERAND, kMost> mOperands;
    std::size_t mCount = 0;
};

}  // namespace MLCore
