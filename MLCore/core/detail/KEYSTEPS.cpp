#include <MLCore/core/detail/KEYSTEPS.h>

#include <MLCore/core/FailureChecks.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace MLCore {

namespace {

/// By byte.
constexpr std::array<bool, 256> kIsDelimiter = [] {
    std::array<bool, 256> isDelimiter{};
    for (const char character : {'.', '[', ']'}) {
        isDelimiter[static_cast<unsigned char>(character)] = true;
    }
    return isDelimiter;
}();

bool IsDelimiter(char character) noexcept { return kIsDelimiter[static_cast<unsigned char>(character)]; }

}  // namespace

bool KEYSTEPS::IsName(std::string_view text) noexcept {
    return !text.empty() && std::none_of(text.begin(), text.end(), IsDelimiter);
}

void KEYSTEPS::Check(std::string_view keyPath) {
    KEYSTEPS steps(keyPath);
    do {
        steps.Take();
    } while (!steps.IsEnd());
}

void KEYSTEPS::RequireAt(bool condition, const char* wanted) const {
    if (!condition) {
        FailWith(kErrUnknownKey, Quoted(mPath), " is not a key path: ", wanted, " is wanted at character ",
                 mPath.size() - mRest.size() + 1);
    }
}

KEYSTEPS::STEP KEYSTEPS::Take() {
    STEP step{IsAt('['), {}, 0};
    if (step.isIndex) {
        step.index = TakeIndex();
    } else {
        step.name = TextAhead();
        RequireAt(!step.name.empty(), "a name");
        mRest.remove_prefix(step.name.size());
    }
    if (IsAt('.')) {
        mRest.remove_prefix(1);
        RequireAt(!IsEnd(), "a step");
    } else {
        RequireAt(IsEnd() || IsAt('['), "'.', '[' or the end");
    }
    return step;
}

// Up to the next delimiter; may be empty.
std::string_view KEYSTEPS::TextAhead() const noexcept {
    const auto* const end = std::find_if(mRest.data(), mRest.data() + mRest.size(), IsDelimiter);
    return mRest.substr(0, static_cast<std::size_t>(end - mRest.data()));
}

// "[digits]".
long KEYSTEPS::TakeIndex() {
    mRest.remove_prefix(1);
    constexpr const char* kIndex = "an index from 0 to 2147483647";
    const std::string_view digits = TextAhead();
    std::int64_t index = 0;
    RequireAt(!digits.empty(), kIndex);
    for (const char digit : digits) {
        index = index * 10 + (digit - '0');
        RequireAt(digit >= '0' && digit <= '9' && index <= std::numeric_limits<std::int32_t>::max(), kIndex);
    }
    mRest.remove_prefix(digits.size());
    RequireAt(IsAt(']'), "']'");
    mRest.remove_prefix(1);
    return static_cast<long>(index);
}

}  // namespace MLCore
