#include <MLCore/predicates/CORPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CORPREDICATE)

CORPREDICATE::~CORPREDICATE() = default;

}  // namespace MLCore
