#include <MLCore/predicates/CORPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CORPREDICATE)

CORPREDICATE::CORPREDICATE() : CCOMPOUNDPREDICATE(Type::OR) {}

CORPREDICATE::CORPREDICATE(const CARRAY& predicates) : CCOMPOUNDPREDICATE(Type::OR, predicates) {}

CORPREDICATE::~CORPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CORPREDICATE::Create(const CARRAY& predicates) {
    return AdoptObject<CPREDICATE>(new CORPREDICATE(predicates));
}

CSHAREOBJECTPTR<CPREDICATE> CORPREDICATE::Create(CSHAREOBJECTPTR<CPREDICATE> first,
                                                 CSHAREOBJECTPTR<CPREDICATE> second) {
    return Create({first, second});
}

CSHAREOBJECTPTR<CPREDICATE> CORPREDICATE::Create(CSHAREOBJECTPTR<CPREDICATE> first, CSHAREOBJECTPTR<CPREDICATE> second,
                                                 CSHAREOBJECTPTR<CPREDICATE> third) {
    return Create({first, second, third});
}

CSHAREOBJECTPTR<CPREDICATE> CORPREDICATE::Create(std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates) {
    const CSHAREOBJECTPTR<CORPREDICATE> created = AdoptObject(new CORPREDICATE);
    created->AddPredicates(predicates);
    return created;
}

}  // namespace MLCore
