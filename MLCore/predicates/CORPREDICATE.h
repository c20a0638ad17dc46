#pragma once

#include <MLCore/predicates/detail/JUNCTION.h>

namespace MLCore {

/// True when at least one member is true.
class MLCORE_API CORPREDICATE : public JUNCTION<CORPREDICATE, CCOMPOUNDPREDICATE::Type::OR> {
    MLCORE_CLASS(CORPREDICATE, CCOMPOUNDPREDICATE)
    friend JUNCTION;

protected:
    using JUNCTION::JUNCTION;
    ~CORPREDICATE() override;
};

}  // namespace MLCore
