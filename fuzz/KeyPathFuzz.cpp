// Key paths: the steps that are read, against an automaton, and built again.
#include <MLCore/core/CKEYBUILDER.h>
#include <MLCore/core/CKEYPARSER.h>

#include <optional>
#include <utility>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;
using STEPS = std::vector<CKEYPARSER::STEP>;

/// The steps of a path, by an automaton; none of what is no path.
std::optional<STEPS> Expected(const std::string& path) {
    enum { Start, Name, Open, Index, Closed } state = Start;
    STEPS steps;
    long long index = 0;
    for (const char c : path) {
        const bool isDigit = c >= '0' && c <= '9';
        if (state == Open || state == Index) {
            if (isDigit) {
                index = std::min(index * 10 + (c - '0'), 1LL << 40);
                state = Index;
            } else if (c == ']' && state == Index && index <= 2147483647) {
                steps.push_back({true, "", static_cast<long>(std::exchange(index, 0))});
                state = Closed;
            } else {
                return {};
            }
        } else if (c == '[') {
            state = Open;
        } else if (c == '.' && state != Start) {
            state = Start;
        } else if (c == '.' || c == ']' || state == Closed) {
            return {};
        } else {
            if (state == Start) steps.push_back({false, "", 0});
            steps.back().name += c;
            state = Name;
        }
    }
    return state == Name || state == Closed ? std::optional(steps) : std::nullopt;
}

/// A path is read as its grammar says, and the builder writes one of the same steps.
void Property(INPUT input) {
    const std::string path = input.Rest();
    const auto expected = Expected(path);
    STEPS steps;
    FUZZ_REQUIRE(FailureOf([&] { steps = CKEYPARSER(path).GetAccessPath(); }) == (expected ? 0 : 151));
    FUZZ_REQUIRE(steps == expected.value_or(STEPS()));
    CKEYBUILDER builder;
    for (const auto& step : steps) step.isIndex ? builder.AddIndex(step.index) : builder.AddKey(step.name);
    FUZZ_REQUIRE(steps.empty() || CKEYPARSER(builder.GetPath()).GetAccessPath() == steps);
    // Any text is a key or is refused, with nothing done.
    const std::string before = builder.GetPath();
    const bool isName = !path.empty() && path.find_first_of(".[]") == path.npos;
    FUZZ_REQUIRE(FailureOf([&] { builder.AddKey(path); }) == (isName ? 0 : 151));
    FUZZ_REQUIRE(builder.GetPath() == (isName ? before + (before.empty() ? "" : ".") + path : before));
}

const TARGET kTarget("KeyPath", Property);

}  // namespace
