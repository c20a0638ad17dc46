/// \file
/// The words of expressions in key streams.
#pragma once

#include <MLCore/core/EnumTable.h>
#include <MLCore/predicates/CEXPRESSION.h>

#include <cstddef>

namespace MLCore {

struct EXPRESSIONWORDS {
    CEXPRESSION::ExpressionType type;
    const char* element;
    const char* attribute;  ///< Where one text is all that the expression holds; null elsewhere.
};

/// By expression type.
inline constexpr EXPRESSIONWORDS kExpressionWords[] = {
    {CEXPRESSION::ExpressionType::Key, "key", "key"},
    {CEXPRESSION::ExpressionType::Value, "value", nullptr},
    {CEXPRESSION::ExpressionType::List, "list", nullptr},
    {CEXPRESSION::ExpressionType::Variable, "variable", "name"},
    {CEXPRESSION::ExpressionType::Function, "function", nullptr},
    {CEXPRESSION::ExpressionType::Object, "object", "object"},
};
static_assert(IsIndexedBy(kExpressionWords, &EXPRESSIONWORDS::type, CEXPRESSION::kExpressionTypeCount));

/// The row of a type of the library's own classes.
[[nodiscard]] constexpr const EXPRESSIONWORDS& WordsOf(CEXPRESSION::ExpressionType type) noexcept {
    return kExpressionWords[static_cast<std::size_t>(type)];
}

}  // namespace MLCore
