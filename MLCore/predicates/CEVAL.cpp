#include <MLCore/predicates/CEVAL.h>

#include <utility>

namespace MLCore {

CEVAL::CEVAL() = default;

CEVAL::CEVAL(CSHAREOBJECTPTR<CDICTIONARY> variables) : mVariables(std::move(variables)) {}

CEVAL::~CEVAL() = default;

int CEVAL::Evaluate(const CPREDICATE* predicate, COBJECT* object) const {
    if (predicate == nullptr) {
        return 1;
    }
    const CSHAREOBJECTPTR<CDICTIONARY> variables = mVariables;  // a property that is asked may assign to this
    return !variables ? predicate->Evaluate(object) : predicate->Evaluate(object, *variables);
}

}  // namespace MLCore
