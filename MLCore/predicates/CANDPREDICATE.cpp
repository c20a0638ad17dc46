#include <MLCore/predicates/CANDPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CANDPREDICATE)

CANDPREDICATE::CANDPREDICATE() : CCOMPOUNDPREDICATE(Type::AND) {}

CANDPREDICATE::CANDPREDICATE(const CARRAY& predicates) : CCOMPOUNDPREDICATE(Type::AND, predicates) {}

CANDPREDICATE::~CANDPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CANDPREDICATE::Create(const CARRAY& predicates) {
    return AdoptObject<CPREDICATE>(new CANDPREDICATE(predicates));
}

CSHAREOBJECTPTR<CPREDICATE> CANDPREDICATE::Create(CSHAREOBJECTPTR<CPREDICATE> first,
                                                  CSHAREOBJECTPTR<CPREDICATE> second) {
    return Create({first, second});
}

CSHAREOBJECTPTR<CPREDICATE> CANDPREDICATE::Create(CSHAREOBJECTPTR<CPREDICATE> first, CSHAREOBJECTPTR<CPREDICATE> second,
                                                  CSHAREOBJECTPTR<CPREDICATE> third) {
    return Create({first, second, third});
}

CSHAREOBJECTPTR<CPREDICATE> CANDPREDICATE::Create(std::initializer_list<CSHAREOBJECTPTR<CPREDICATE>> predicates) {
    const CSHAREOBJECTPTR<CANDPREDICATE> created = AdoptObject(new CANDPREDICATE);
    created->AddPredicates(predicates);
    return created;
}

}  // namespace MLCore
