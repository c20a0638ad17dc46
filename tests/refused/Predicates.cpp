// What Dispatch() does not take: see Core.cpp.

#include <MLCore/predicates/Dispatch.h>

namespace {

using namespace MLCore;

const auto kOfKey = [](const CKEYEXPRESSION&) { return 1; };
const auto kOfValue = [](const CVALUEEXPRESSION&) { return 1; };
const auto kOfExpression = [](const CEXPRESSION&) { return 1; };
const auto kLongOfExpression = [](const CEXPRESSION&) { return 1L; };
const auto kOfCompound = [](const CCOMPOUNDPREDICATE&) { return 1; };
const auto kOfPredicate = [](const CPREDICATE&) { return 1; };

}  // namespace

int Sum(const CEXPRESSION& expression, const CPREDICATE& predicate) {
    int sum = Dispatch(expression, kOfExpression) + Dispatch(expression, kOfKey, kOfValue, kOfExpression) +
              Dispatch(predicate, kOfCompound, kOfPredicate);
    static_cast<void>(kLongOfExpression);
#ifdef REFUSED
    sum += Dispatch(expression, kOfKey);                      // refused
    sum += Dispatch(expression, kOfKey, kOfValue);            // refused
    sum += Dispatch(expression, kOfValue);                    // refused
    sum += Dispatch(predicate, kOfCompound);                  // refused
    Dispatch(expression, kOfKey, kLongOfExpression);          // refused
    Dispatch(expression, kOfExpression, kOfPredicate, 5);     // refused
    Dispatch(CSHAREOBJECTPTR<CEXPRESSION>(), kOfExpression);  // refused
#endif
    return sum;
}
