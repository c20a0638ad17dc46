#include <MLCore/predicates/detail/NodeDispatch.h>

#include <MLCore/core/FailureChecks.h>

namespace MLCore {

void FailNoOverload(const COBJECT& node) {
    FailWith(kErrBadCast, "no overload of this dispatch takes the class ", node.GetClassName());
}

}  // namespace MLCore
