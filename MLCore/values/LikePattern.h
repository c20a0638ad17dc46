/// \file
/// The patterns of the comparison Like.
#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <string_view>

namespace MLCore {

/// 1 when `text` matches `pattern`. Each "?" stands for any run of characters, also for an empty one:
///
///     MatchesLike("Dupont", "Du?", option);     // begins
///     MatchesLike("Dupont", "?pon?", option);   // contains
///     MatchesLike("Dupont", "D?t", option);     // begins and ends
///
/// CaseSensitive compares characters as they are. CaseInsensitive upper-cases both texts. DiacriticInsensitive removes
/// the accents of both, and case still counts. An unknown option counts as CaseSensitive.
///
/// The text matches as a whole as long as the pattern has at most three pieces, where each "?" is a piece, and so is
/// each run of other characters. With more pieces the match is looser, which is intended. It goes through the pieces
/// from left to right with a position in the text that starts at 0. A run of characters is searched from the position
/// on, and the position moves to where the run begins. A "?" moves the position by one character, and at the end of the
/// text it fails. The match may begin and end anywhere in the text. So "a?b?c" matches "zaXbYcz", "?a?b" does not match
/// "ab", and "????" needs four characters.
///
/// Takes no memory. The time is at worst in proportion to the product of the lengths.
[[nodiscard]] MLCORE_API int MatchesLike(std::string_view text, std::string_view pattern,
                                         CVALUEOBJECT::ComparisonOption option) noexcept;

}  // namespace MLCore
