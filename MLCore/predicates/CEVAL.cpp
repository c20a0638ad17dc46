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
    return !mVariables ? predicate->Evaluate(object) : predicate->Evaluate(object, *mVariables);
}

}  // namespace MLCore
