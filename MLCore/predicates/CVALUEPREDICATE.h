#pragma once

#include <MLCore/predicates/CPREDICATE.h>

namespace MLCore {

/// A constant condition: every object meets it, or no object does.
class MLCORE_API CVALUEPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CVALUEPREDICATE, CPREDICATE)

public:
    /// Every object meets it when `value` is not 0.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(int value);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> True() { return Create(1); }
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> False() { return Create(0); }

    /// The value given to Create(), which Evaluate() returns.
    [[nodiscard]] int GetValue() const noexcept { return mValue; }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;

    /// The element "true" or "false".
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    explicit CVALUEPREDICATE(int value = 0) noexcept;
    ~CVALUEPREDICATE() override;

private:
    int mValue;
};

/// Writes "CVALUEPREDICATE(TRUE)" or "CVALUEPREDICATE(FALSE)"; "CVALUEPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUEPREDICATE* predicate);

}  // namespace MLCore
