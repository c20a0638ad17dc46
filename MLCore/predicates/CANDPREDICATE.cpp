#include <MLCore/predicates/CANDPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CANDPREDICATE)

CANDPREDICATE::~CANDPREDICATE() = default;

}  // namespace MLCore
