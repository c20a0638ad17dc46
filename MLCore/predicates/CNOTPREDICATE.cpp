#include <MLCore/predicates/CNOTPREDICATE.h>

#include <utility>

namespace MLCore {

MLCORE_REGISTER_CLASS(CNOTPREDICATE)

CNOTPREDICATE::CNOTPREDICATE() : CCOMPOUNDPREDICATE(Type::NOT) {}

CNOTPREDICATE::~CNOTPREDICATE() = default;

CSHAREOBJECTPTR<CPREDICATE> CNOTPREDICATE::Create(CSHAREOBJECTPTR<CPREDICATE> predicate) {
    const CSHAREOBJECTPTR<CNOTPREDICATE> created = AdoptObject(new CNOTPREDICATE);
    created->AddPredicate(std::move(predicate));
    return created;
}

}  // namespace MLCore
