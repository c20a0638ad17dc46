/// \file
/// The words for comparison types and options: in dumps, in element streams and in query text.
#pragma once

#include <MLCore/core/EnumTable.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <cstddef>
#include <iterator>

namespace MLCore {

struct COMPARISONWORDS {
    CVALUEOBJECT::ComparisonType type;
    const char* dump;
    const char* element;
    const char* queryOperator;  ///< with its blanks; null for Between, which has two operands on its right
};

/// By comparison type.
inline constexpr COMPARISONWORDS kComparisonWords[] = {
    {CVALUEOBJECT::ComparisonType::Lesser, "ComparisonType::Lesser", "lesser", " < "},
    {CVALUEOBJECT::ComparisonType::LesserEqual, "ComparisonType::LesserEqual", "lesserEq", " <= "},
    {CVALUEOBJECT::ComparisonType::Greater, "ComparisonType::Greater", "greater", " > "},
    {CVALUEOBJECT::ComparisonType::GreaterEqual, "ComparisonType::GreaterEqual", "greaterEq", " >= "},
    {CVALUEOBJECT::ComparisonType::Equal, "ComparisonType::Equal", "equal", " = "},
    {CVALUEOBJECT::ComparisonType::NotEqual, "ComparisonType::NotEqual", "notEqual", " != "},
    {CVALUEOBJECT::ComparisonType::Like, "ComparisonType::Like", "like", " LIKE "},
    {CVALUEOBJECT::ComparisonType::Begins, "ComparisonType::Begins", "begins", " BEGINS "},
    {CVALUEOBJECT::ComparisonType::Ends, "ComparisonType::Ends", "ends", " ENDS "},
    {CVALUEOBJECT::ComparisonType::In, "ComparisonType::In", "in", " IN "},
    {CVALUEOBJECT::ComparisonType::Contains, "ComparisonType::Contains", "contains", " CONTAINS "},
    {CVALUEOBJECT::ComparisonType::Between, "ComparisonType::Between", "between", nullptr},
};
static_assert(IsIndexedBy(kComparisonWords, &COMPARISONWORDS::type, CVALUEOBJECT::kComparisonTypeCount));

/// By comparison option: the words of element streams. The last one has this spelling in all files.
inline constexpr const char* kOptionWords[] = {"caseSensitive", "caseInsensitive", "diacriticInsentive"};
static_assert(std::size(kOptionWords) == CVALUEOBJECT::kComparisonOptionCount);

/// The row of a comparison type; null for an unknown one.
[[nodiscard]] constexpr const COMPARISONWORDS* WordsOf(CVALUEOBJECT::ComparisonType type) noexcept {
    const auto index = static_cast<std::size_t>(type);
    return index < std::size(kComparisonWords) ? &kComparisonWords[index] : nullptr;
}

}  // namespace MLCore
