#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/predicates/detail/OPERANDS.h>

namespace MLCore {

/// A search for the words of a text, in one field or in all fields that a database searches. It is meant for query
/// text.
///
/// Evaluated, it is true when each word occurs in the field's text without regard to case and accents. A word is a
/// run of characters without blanks. It is false without a field, and where the field or the text is not a String.
class MLCORE_API CSEARCHTEXTPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CSEARCHTEXTPREDICATE, CPREDICATE)

public:
    /// A null expression fails with kErrNull (-100).
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(const CSHAREOBJECTPTR<CEXPRESSION>& text);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(const CSHAREOBJECTPTR<CEXPRESSION>& field,
                                                            const CSHAREOBJECTPTR<CEXPRESSION>& text);

    /// Borrowed; null without a field.
    [[nodiscard]] CEXPRESSION* GetField() const noexcept;
    /// Borrowed; never null.
    [[nodiscard]] CEXPRESSION* GetText() const noexcept;

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

    /// The element "searchText" with the element of the field, if there is one, and that of the text.
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    CSEARCHTEXTPREDICATE();
    /// The text, or the field and the text. Fails with kErrNull for a null one.
    explicit CSEARCHTEXTPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& text);
    CSEARCHTEXTPREDICATE(const CSHAREOBJECTPTR<CEXPRESSION>& field, const CSHAREOBJECTPTR<CEXPRESSION>& text);
    ~CSEARCHTEXTPREDICATE() override;

private:
    [[nodiscard]] const OPERAND& TextOperand() const noexcept { return mOperands[mOperands.GetCount() - 1]; }
    [[nodiscard]] int Search(const SUBJECT& subject) const;

    OPERANDS mOperands;  // the field, if there is one, then the text
};

/// Writes "CSEARCHTEXTPREDICATE(PredicateType::SearchText)"; "CSEARCHTEXTPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CSEARCHTEXTPREDICATE* predicate);

inline CEXPRESSION* CSEARCHTEXTPREDICATE::GetField() const noexcept {
    return mOperands.GetCount() == 2 ? mOperands[0].GetExpression() : nullptr;
}

inline CEXPRESSION* CSEARCHTEXTPREDICATE::GetText() const noexcept { return TextOperand().GetExpression(); }

}  // namespace MLCore
