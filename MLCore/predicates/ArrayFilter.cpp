// Apart from CARRAY.cpp: the one place where a collection needs to know what a predicate is.
#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/CDICTIONARY.h>

namespace MLCore {

CSHAREOBJECTPTR<CARRAY> CARRAY::Filter(CPREDICATE* predicate) {
    const CSHAREOBJECTPTR<CPREDICATE> held(predicate);  // an element that is asked may release it
    return FilterIf(
        [predicate](COBJECT* element) { return predicate == nullptr || predicate->Evaluate(element) != 0; });
}

CSHAREOBJECTPTR<CARRAY> CARRAY::Filter(CPREDICATE* predicate, CDICTIONARY* variables) {
    if (predicate == nullptr || variables == nullptr) {
        return Filter(predicate);
    }
    const CSHAREOBJECTPTR<CPREDICATE> held(predicate);
    const CSHAREOBJECTPTR<CDICTIONARY> heldVariables(variables);
    return FilterIf([&](COBJECT* element) { return predicate->Evaluate(element, *variables) != 0; });
}

}  // namespace MLCore
