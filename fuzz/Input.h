/// What the fuzzed properties share: values taken from the bytes of an input, and how a property says that it is
/// broken.
#pragma once

#include <MLCore/core/FrameworkException.h>
#include <support/Failure.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Ends the program where a property does not hold. A property lets out no exception either.
#define FUZZ_REQUIRE(...)                                                                  \
    do {                                                                                   \
        if (!(__VA_ARGS__)) {                                                              \
            std::fprintf(stderr, "%s:%d: broken: %s\n", __FILE__, __LINE__, #__VA_ARGS__); \
            std::abort();                                                                  \
        }                                                                                  \
    } while (false)

namespace fuzz {

/// The failure of `action`. Every failure has a text.
template <class Action>
support::FAILURE FailureOf(Action&& action) {
    const support::FAILURE failure = support::FailureOf(std::forward<Action>(action));
    FUZZ_REQUIRE(failure == support::FAILURE() || !failure.text.empty());
    return failure;
}

/// The bytes of an input, taken from the front. Behind the end there are zeros.
class INPUT {
public:
    explicit INPUT(std::string_view bytes) : mRest(bytes) {}

    [[nodiscard]] bool IsEnd() const { return mRest.empty(); }
    unsigned char Byte() {
        const std::string_view taken = Take(1);
        return taken.empty() ? static_cast<unsigned char>(0) : static_cast<unsigned char>(taken.front());
    }
    /// 0 to `bound` - 1.
    unsigned Below(unsigned bound) { return Byte() % bound; }
    /// As many bytes as the next one says, and up to `most`.
    std::string Text(unsigned most) { return std::string(Take(Below(most + 1))); }
    /// All of them, up to `most`.
    std::string Rest(std::size_t most = std::string::npos) { return std::string(Take(most)); }

private:
    std::string_view Take(std::size_t count) {
        const std::string_view taken = mRest.substr(0, count);
        mRest.remove_prefix(taken.size());
        return taken;
    }
    std::string_view mRest;
};

/// A property of a surface, which holds for any input. Each source file makes one, at namespace scope.
struct TARGET {
    using PROPERTY = void (*)(INPUT input);

    TARGET(const char* itsSurface, PROPERTY its) : surface(itsSurface), property(its) { All().push_back(this); }
    TARGET(const TARGET&) = delete;
    TARGET& operator=(const TARGET&) = delete;

    /// Those of the program: one in a fuzzer, all in the replay.
    static std::vector<const TARGET*>& All() {
        static std::vector<const TARGET*> all;
        return all;
    }

    const char* const surface;  ///< the name of the folder of its inputs
    const PROPERTY property;
};

}  // namespace fuzz
