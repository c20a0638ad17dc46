#pragma once

#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>

#include <utility>

namespace MLCore {

/// The functions that AND and OR share: all that they have except their names.
template <class Class, CCOMPOUNDPREDICATE::Type type>
class JUNCTION : public CCOMPOUNDPREDICATE {
public:
    /// Copies the array, but not its members. Fails with kErrNull (-100) for a null member, and with kErrBadCast
    /// (121) for a member that is not a CPREDICATE. The other functions fail for a null member too.
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(const CARRAY& predicates) {
        return AdoptObject<CPREDICATE>(new Class(predicates));
    }
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CSHAREOBJECTPTR<CPREDICATE> first,
                                                            CSHAREOBJECTPTR<CPREDICATE> second) {
        return Create({std::move(first), std::move(second)});
    }
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(CSHAREOBJECTPTR<CPREDICATE> first,
                                                            CSHAREOBJECTPTR<CPREDICATE> second,
                                                            CSHAREOBJECTPTR<CPREDICATE> third) {
        return Create({std::move(first), std::move(second), std::move(third)});
    }
    [[nodiscard]] static CSHAREOBJECTPTR<CPREDICATE> Create(
        std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates) {
        return AdoptObject<CPREDICATE>(new Class(predicates));
    }

protected:
    JUNCTION() : CCOMPOUNDPREDICATE(type) {}
    explicit JUNCTION(const CARRAY& predicates) : CCOMPOUNDPREDICATE(type, predicates) {}
    explicit JUNCTION(std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates)
        : CCOMPOUNDPREDICATE(type, predicates) {}
};

}  // namespace MLCore
