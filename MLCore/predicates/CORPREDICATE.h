#pragma once

#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>

namespace MLCore {

/// At least one member is true.
class MLCORE_API CORPREDICATE : public CCOMPOUNDPREDICATE {
    MLCORE_CLASS(CORPREDICATE, CCOMPOUNDPREDICATE)

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
    CORPREDICATE();
    explicit CORPREDICATE(const CARRAY& predicates);
    ~CORPREDICATE() override;
};

}  // namespace MLCore
