/// \file
/// The words of predicates: in dumps, in key streams and in query text. ComparisonWords.h has those of comparisons.
#pragma once

#include <MLCore/core/EnumTable.h>
#include <MLCore/predicates/CCOMPOUNDPREDICATE.h>

#include <cstddef>
#include <iterator>

namespace MLCore {

inline constexpr const char* kFalseElement = "false";
inline constexpr const char* kTrueElement = "true";
inline constexpr const char* kSearchTextElement = "searchText";

struct COMPOUNDWORDS {
    CCOMPOUNDPREDICATE::Type type;
    const char* dump;
    const char* element;
    const char* queryBegin;
    const char* queryBeforeMember;
    const char* queryAfterMember;
    const char* queryBetween;
    const char* queryEnd;
};

/// By compound type.
inline constexpr COMPOUNDWORDS kCompoundWords[] = {
    {CCOMPOUNDPREDICATE::Type::AND, "COMPOUNDTYPE_AND", "and", "(", "(", ")", " AND ", ")"},
    {CCOMPOUNDPREDICATE::Type::OR, "COMPOUNDTYPE_OR", "or", "(", "(", ")", " OR ", ")"},
    {CCOMPOUNDPREDICATE::Type::NOT, "COMPOUNDTYPE_NOT", "not", "NOT(", "", "", "", ")"},
};
static_assert(IsIndexedBy(kCompoundWords, &COMPOUNDWORDS::type, CCOMPOUNDPREDICATE::kTypeCount));

/// The row of a compound type; null for an unknown one.
[[nodiscard]] constexpr const COMPOUNDWORDS* WordsOf(CCOMPOUNDPREDICATE::Type type) noexcept {
    const auto index = static_cast<std::size_t>(type);
    return index < std::size(kCompoundWords) ? &kCompoundWords[index] : nullptr;
}

}  // namespace MLCore
