#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CDICTIONARY.h>

namespace MLCore {

/// Evaluates predicates with one set of variables. A class may derive from it to watch, or change, what is evaluated.
class MLCORE_API CEVAL {
public:
    /// Without variables.
    CEVAL();
    /// With these, which are shared, not copied; may be null.
    explicit CEVAL(CSHAREOBJECTPTR<CDICTIONARY> variables);
    CEVAL(const CEVAL&) = default;
    CEVAL& operator=(const CEVAL&) = default;
    virtual ~CEVAL();

    /// Not 0 when `object` (may be null) meets `predicate`; every object meets a null one.
    [[nodiscard]] virtual int Evaluate(const CPREDICATE* predicate, COBJECT* object) const;

private:
    CSHAREOBJECTPTR<CDICTIONARY> mVariables;
};

}  // namespace MLCore
