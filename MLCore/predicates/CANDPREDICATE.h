#pragma once

#include <MLCore/predicates/detail/JUNCTION.h>

namespace MLCore {

/// True when all members are true.
class MLCORE_API CANDPREDICATE : public JUNCTION<CANDPREDICATE, CCOMPOUNDPREDICATE::Type::AND> {
    MLCORE_CLASS(CANDPREDICATE, CCOMPOUNDPREDICATE)
    friend JUNCTION;

protected:
    using JUNCTION::JUNCTION;
    ~CANDPREDICATE() override;
};

}  // namespace MLCore
