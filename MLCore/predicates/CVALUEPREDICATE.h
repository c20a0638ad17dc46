#pragma once

#include <MLCore/predicates/CPREDICATE.h>

namespace MLCore {

/// A condition that every object meets, or none.
class MLCORE_API CVALUEPREDICATE : public CPREDICATE {
    MLCORE_CLASS(CVALUEPREDICATE, CPREDICATE)

public:
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(int value);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> True() { return Create(1); }
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> False() { return Create(0); }

    /// As it was given.
    [[nodiscard]] int GetValue() const noexcept { return mValue; }

    [[nodiscard]] int Evaluate(COBJECT* object, CDICTIONARY& variables) const override;
    [[nodiscard]] int Evaluate(COBJECT* object) const override;

    /// The element "true" or "false".
    void DoWriteState(CKEYWRITER& writer) const override;
    void DoInitState(CKEYREADER& reader) override;

protected:
    explicit CVALUEPREDICATE(int value) noexcept;
    ~CVALUEPREDICATE() override;

private:
    CVALUEPREDICATE() noexcept : CVALUEPREDICATE(0) {}

    int mValue;
};

/// Writes "CVALUEPREDICATE(TRUE)" or "CVALUEPREDICATE(FALSE)"; "CVALUEPREDICATE()" for null.
MLCORE_API std::ostream& operator<<(std::ostream& out, const CVALUEPREDICATE* predicate);

}  // namespace MLCore
