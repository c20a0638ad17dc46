// Patterns with "?", against the rules taken at their word.
#include <MLCore/text/LegacyStrings.h>
#include <MLCore/values/LikePattern.h>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;

/// Each "?" is any run of characters.
bool IsRun(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern[0] == '?') return IsRun(text, pattern.substr(1)) || (!text.empty() && IsRun(text.substr(1), pattern));
    return !text.empty() && text[0] == pattern[0] && IsRun(text.substr(1), pattern.substr(1));
}

/// The pieces one after the other, each looked for from the place that the one before led to.
bool IsWalk(const std::string& text, const std::vector<std::string>& pieces) {
    std::size_t place = 0;
    for (const std::string& piece : pieces) {
        place = piece == "?" ? place + 1 : text.find(piece, place);
        if (place > text.size()) return false;
    }
    return true;
}

bool Matches(const std::string& text, const std::string& pattern) {
    std::vector<std::string> pieces;
    for (const char character : pattern) {
        const bool goesOn = character != '?' && !pieces.empty() && pieces.back() != "?";
        if (!goesOn) pieces.emplace_back();
        pieces.back() += character;
    }
    return pieces.size() <= 3 ? IsRun(text, pattern) : IsWalk(text, pieces);
}

/// The matcher answers as the rules read, taken at their word.
void Property(INPUT input) {
    using OPTION = CVALUEOBJECT::ComparisonOption;
    const auto kind = input.Below(4);
    std::string pattern = input.Text(16), text = input.Text(32);
    const int answer = MatchesLike(text, pattern, static_cast<OPTION>(kind));
    for (std::string* const each : {&text, &pattern}) {
        if (kind == 1) std::transform(each->begin(), each->end(), each->begin(), UpperAnsi);
        if (kind == 2) std::transform(each->begin(), each->end(), each->begin(), WithoutAccent);
    }
    FUZZ_REQUIRE(answer == (Matches(text, pattern) ? 1 : 0));
}

const TARGET kTarget("Like", Property);

}  // namespace
