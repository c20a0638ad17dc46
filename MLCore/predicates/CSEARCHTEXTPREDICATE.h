#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/predicates/detail/OPERAND.h>

#include <vector>

namespace MLCore {

/// A search for the words of a text, in one field or wherever a database looks. It is meant for query text; evaluated, it is
/// true when every word, that is every run of characters between blanks, occurs in the field's text without regard to case
/// and accents. Without a field, and where one of the two is no text, it is false.
class MLCORE_API CSEARCHTEXTPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CSEARCHTEXTPREDICATE, CPREDICATE)

public:
    /// A null expression fails with -100.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(const CSHAREOBJECTPTR<CEXPRESSION>& text);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(const CSHAREOBJECTPTR<CEXPRESSION>& field,
                                                            const CSHAREOBJECTPTR<CEXPRESSION>& text);

    /// Borrowed. The field is null when there is none; the text never is.
    [[nodiscard]] CEXPRESSION* GetField() const noexcept {
        return mOperands.size() == 2 ? mOperands.front().GetExpression() : nullptr;
    }
    [[nodiscard]] CEXPRESSION* GetText() const noexcept { return mOperands.back().GetExpression(); }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;
    void Accept(CPREDICATEVISITOR& visitor) const override;

    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    CSEARCHTEXTPREDICATE();
    /// The field, if there is one, then the text. Fails with 138 for another number of operands.
    explicit CSEARCHTEXTPREDICATE(std::vector<OPERAND> operands);
    ~CSEARCHTEXTPREDICATE() override;

private:
    [[nodiscard]] int Search(const SUBJECT& subject) const;

    std::vector<OPERAND> mOperands;  // the field, if there is one, then the text
};

/// Writes "CSEARCHTEXTPREDICATE(PredicateType::SearchText)"; "CSEARCHTEXTPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CSEARCHTEXTPREDICATE* predicate);

}  // namespace MLCore
