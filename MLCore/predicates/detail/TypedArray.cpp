#include <MLCore/predicates/detail/TypedArray.h>

namespace MLCore {

void RequireElement(const COBJECT* element, long index, const char* what) {
    Require(element != nullptr, kErrNull, "element [", index, "] of ", what, " is null");
}

void FailElementClass(const COBJECT& element, long index, const char* what, const CCLASSTYPEINFO& wanted) {
    FailWith(kErrBadCast, "element [", index, "] of ", what, " is of the class ", element.GetClassName(), ", wanted ",
             wanted.GetName());
}

}  // namespace MLCore
