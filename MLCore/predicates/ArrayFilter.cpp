// Apart from CARRAY.cpp: the one place where a collection needs to know what a predicate is.
#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/Elements.h>

#include <utility>

namespace MLCore {

CSHAREOBJECTPTR<CARRAY> CARRAY::Filter(CPREDICATE* predicate) {
    Elements elements = ElementsOf(*this);
    if (predicate != nullptr) {
        const CSHAREOBJECTPTR<CPREDICATE> held(predicate);
        std::erase_if(elements,
                      [&held](const CSHAREOBJECTPTR<COBJECT>& element) { return held->Evaluate(element) == 0; });
    }
    return CMEMARRAY::Create(std::move(elements));
}

}  // namespace MLCore
