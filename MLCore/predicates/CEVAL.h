#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CDICTIONARY.h>

namespace MLCore {

/// Evaluates predicates with one set of variables. A class may derive from it to observe or change evaluations.
class MLCORE_API CEVAL {
public:
    /// Without variables.
    CEVAL();
    /// `variables` are shared, not copied, and may be null.
    explicit CEVAL(CSHAREOBJECTPTR<CDICTIONARY> variables);
    CEVAL(const CEVAL&) = default;
    CEVAL& operator=(const CEVAL&) = default;
    virtual ~CEVAL();

    /// Returns a value other than 0 when `object` (may be null) meets `predicate`. Every object meets a null predicate.
    [[nodiscard]] virtual int Evaluate(const CPREDICATE* predicate, COBJECT* object) const;

private:
    CSHAREOBJECTPTR<CDICTIONARY> mVariables;
};

}  // namespace MLCore
