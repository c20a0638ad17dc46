#pragma once

#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>

namespace MLCore {

/// True when its one member is false.
class MLCORE_API CNOTPREDICATE : public CCOMPOUNDPREDICATE {
    MLCORE_CLASS(CNOTPREDICATE, CCOMPOUNDPREDICATE)

public:
    /// Null fails with kErrNull (-100).
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CSHAREOBJECTPTR<CPREDICATE> predicate);

protected:
    CNOTPREDICATE();
    explicit CNOTPREDICATE(CSHAREOBJECTPTR<CPREDICATE> predicate);
    ~CNOTPREDICATE() override;
};

}  // namespace MLCore
