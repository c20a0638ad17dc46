#pragma once

#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>

namespace MLCore {

/// All members are true.
class MLCORE_API CANDPREDICATE : public CCOMPOUNDPREDICATE {
    MLCORE_CLASS(CANDPREDICATE, CCOMPOUNDPREDICATE)

public:
    /// Copies the array, not its members. A null member fails with -100, here and below, one that is no CPREDICATE with 121.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(const CARRAY& predicates);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CSHAREOBJECTPTR<CPREDICATE> first,
                                                            CSHAREOBJECTPTR<CPREDICATE> second);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CSHAREOBJECTPTR<CPREDICATE> first,
                                                            CSHAREOBJECTPTR<CPREDICATE> second,
                                                            CSHAREOBJECTPTR<CPREDICATE> third);
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates);

protected:
    CANDPREDICATE();
    explicit CANDPREDICATE(const CARRAY& predicates);
    ~CANDPREDICATE() override;
};

}  // namespace MLCore
