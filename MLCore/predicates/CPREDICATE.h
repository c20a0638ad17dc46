#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>

#include <cstdint>

namespace MLCore {

class CDICTIONARY;

/// A condition that an object meets or not: what CARRAY::Filter asks. Predicates do not change after their creation and
/// may be shared.
class MLCORE_API CPREDICATE : public COBJECT {
    MLCORE_CLASS(CPREDICATE, COBJECT)

public:
    enum class PredicateType : std::int32_t { Value, Compound, Comparison, SearchText };

    /// Not 0 when `object` (may be null) meets the condition; `variables` gives the values of its variables.
    [[nodiscard]] virtual int Evaluate(COBJECT* object, CDICTIONARY& variables) const = 0;
    /// The same where every variable is null.
    [[nodiscard]] virtual int Evaluate(COBJECT* object) const = 0;

    [[nodiscard]] PredicateType GetPredicateType() const noexcept { return mPredicateType; }

protected:
    explicit CPREDICATE(PredicateType type) noexcept : mPredicateType(type) {}
    ~CPREDICATE() override;

private:
    PredicateType mPredicateType;
};

}  // namespace MLCore
