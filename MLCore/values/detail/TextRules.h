/// Looking for a text in another where a rule makes characters alike, and the choice of a rule by a comparison option.
///
/// Nothing is copied: characters are folded where they meet. Looking for a part costs, at worst, the product of the
/// lengths.
#pragma once

#include <MLCore/values/CVALUEOBJECT.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace MLCore::textrules {

/// Characters with the same image are alike; with null only equal characters are.
using FOLD = char (*)(char) noexcept;

/// The row of an option; an unknown option takes the first row, the exact one.
template <class Row>
[[nodiscard]] const Row& RowOf(const Row (&rows)[CVALUEOBJECT::kComparisonOptionCount],
                               CVALUEOBJECT::ComparisonOption option) noexcept {
    const auto index = static_cast<std::size_t>(option);
    return rows[index < CVALUEOBJECT::kComparisonOptionCount ? index : 0];
}

/// Where `part` first occurs in `text` at `from` (at most the length) or later; npos when it does not. An empty part is
/// found immediately.
[[nodiscard]] inline std::size_t Find(std::string_view text, std::string_view part, std::size_t from,
                                      FOLD fold) noexcept {
    if (fold == nullptr) {
        return text.find(part, from);
    }
    const auto alike = [fold](char left, char right) { return left == right || fold(left) == fold(right); };
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(start, text.end(), part.begin(), part.end(), alike);
    return found == text.end() && !part.empty() ? text.npos : static_cast<std::size_t>(found - text.begin());
}

[[nodiscard]] inline bool Contains(std::string_view text, std::string_view part, FOLD fold) noexcept {
    return Find(text, part, 0, fold) != text.npos;
}

[[nodiscard]] inline bool Begins(std::string_view text, std::string_view part, FOLD fold) noexcept {
    return text.size() >= part.size() && Contains(text.substr(0, part.size()), part, fold);
}

[[nodiscard]] inline bool Ends(std::string_view text, std::string_view part, FOLD fold) noexcept {
    return text.size() >= part.size() && Contains(text.substr(text.size() - part.size()), part, fold);
}

}  // namespace MLCore::textrules
