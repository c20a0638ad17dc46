#include <MLCore/predicates/CPREDICATE.h>

namespace MLCore {

MLCORE_REGISTER_CLASS(CPREDICATE)

CPREDICATE::~CPREDICATE() = default;

}  // namespace MLCore
