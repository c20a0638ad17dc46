#include <MLCore/predicates/CPREDICATEVISITOR.h>

namespace MLCore {

CPREDICATEVISITOR::~CPREDICATEVISITOR() = default;

void CPREDICATEVISITOR::LeavePredicate(const CPREDICATE&) {}

}  // namespace MLCore
