#include <MLCore/values/LikePattern.h>

#include <MLCore/text/LegacyStrings.h>
#include <MLCore/values/detail/TextRules.h>

#include <algorithm>
#include <cstddef>

namespace MLCore {

namespace {

using textrules::FOLD;

constexpr char kWildcard = '?';
constexpr FOLD kFolds[] = {nullptr, UpperAnsi, WithoutAccent};

/// Every "?" counts, and every text before, between or after them that is not empty.
std::size_t CountPieces(std::string_view pattern) noexcept {
    std::size_t pieces = 0;
    char before = kWildcard;
    for (const char character : pattern) {
        pieces += character == kWildcard || before == kWildcard ? 1U : 0U;
        before = character;
    }
    return pieces;
}

/// For up to three pieces with a "?" among them; there, "?" side by side are one.
bool MatchesAnchored(std::string_view text, std::string_view pattern, FOLD fold) noexcept {
    const std::size_t first = pattern.find(kWildcard);
    const std::size_t last = pattern.rfind(kWildcard);
    const std::string_view head = pattern.substr(0, first);
    const std::string_view tail = pattern.substr(last + 1);
    const std::string_view inner = first < last ? pattern.substr(first + 1, last - first - 1) : std::string_view();
    return text.size() >= head.size() + tail.size() && textrules::Begins(text, head, fold) &&
           textrules::Ends(text, tail, fold) && (inner == "?" || textrules::Contains(text, inner, fold));
}

bool MatchesWalking(std::string_view text, std::string_view pattern, FOLD fold) noexcept {
    std::size_t position = 0;
    while (!pattern.empty()) {
        const std::size_t length = std::min(pattern.find(kWildcard), pattern.size());
        position = length == 0 ? position + 1 : textrules::Find(text, pattern.substr(0, length), position, fold);
        if (position > text.size()) {  // npos too
            return false;
        }
        pattern.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return true;
}

}  // namespace

int MatchesLike(std::string_view text, std::string_view pattern, CVALUEOBJECT::ComparisonOption option) noexcept {
    const FOLD fold = textrules::RowOf(kFolds, option);
    if (pattern.find(kWildcard) == pattern.npos) {
        return text.size() == pattern.size() && textrules::Begins(text, pattern, fold) ? 1 : 0;
    }
    const bool matches =
        CountPieces(pattern) <= 3 ? MatchesAnchored(text, pattern, fold) : MatchesWalking(text, pattern, fold);
    return matches ? 1 : 0;
}

}  // namespace MLCore
