/// The patterns of the comparison Like.
#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <string_view>

namespace MLCore {

/// 1 when `text` matches `pattern`, where each "?" stands for any run of characters, the empty one too:
///
///     MatchesLike("Dupont", "Du?", option);     // begins
///     MatchesLike("Dupont", "?pon?", option);   // contains
///     MatchesLike("Dupont", "D?t", option);     // begins and ends
///
/// Option 0 takes characters as they are; option 1 upper-cases both texts; option 2 takes the accents off both, and case
/// still counts. An unknown option is exact.
///
/// Cut at its "?", with each of them a piece of its own, a pattern may come to more than three pieces. It is then walked
/// more loosely, which is intended: each text is looked for from the place reached and leads to where it begins, each "?"
/// leads one character on, but not behind the end, and neither end is tied. So "a?b?c" matches "zaXbYcz", "?a?b" does not
/// match "ab", and "????" wants four characters.
///
/// Takes no memory, and at worst time in proportion to the product of the lengths.
[[nodiscard]] MLCORE_API int MatchesLike(std::string_view text, std::string_view pattern,
                                         CVALUEOBJECT::ComparisonOption option) noexcept;

}  // namespace MLCore
