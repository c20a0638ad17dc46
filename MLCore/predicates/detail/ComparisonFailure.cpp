#include <MLCore/predicates/detail/ComparisonFailure.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/values/ComparisonWords.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace MLCore {

namespace {

/// The key of the first operand that is one, or null.
const std::string* KeyOf(const OPERANDS& operands) {
    for (std::size_t i = 0; i < operands.GetCount(); ++i) {
        if (const auto* const key = dynamic_cast<const CKEYEXPRESSION*>(operands[i].GetExpression()); key != nullptr) {
            return &key->GetKey();
        }
    }
    return nullptr;
}

}  // namespace

void FailInComparison(const FrameworkException& failure, CVALUEOBJECT::ComparisonType type, const OPERANDS& operands) {
    constexpr std::size_t kMostOfText = 180;  // leaves room for the key
    const COMPARISONWORDS* const words = WordsOf(type);
    const bool isPlain = IsExactly<FrameworkException>(failure) && failure.GetClass() == kErrValueType &&
                         failure.GetMsg() == kErrValueType && failure.GetText() != nullptr;
    if (!isPlain || words == nullptr) {
        throw;
    }
    const std::string_view text = std::string_view(failure.GetText()).substr(0, kMostOfText);
    if (const std::string* const key = KeyOf(operands); key != nullptr) {
        FailWith(kErrValueType, text, " (in the comparison ", Quoted(words->element), " of the key ", Quoted(*key),
                 ")");
    }
    FailWith(kErrValueType, text, " (in the comparison ", Quoted(words->element), ")");
}

}  // namespace MLCore
