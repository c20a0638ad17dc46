#pragma once

#include <array>

namespace MLCore {

class CISTREAM;
class STREAMCURSOR;

/// A place in a stream, as the end of a failure's text: " at byte 12". Only failures make one. It needs no memory of
/// its own and never fails: a place that is not known is an empty text.
class STREAMPLACE {
public:
    STREAMPLACE() noexcept = default;
    /// Where the stream stands, or the first stream below its decorators that knows its position. `word` says how the
    /// position relates to the failure: "at", "before".
    STREAMPLACE(const char* word, const CISTREAM& stream) noexcept;
    /// The byte at `position`, with its line and column when the text before it lies in the cursor's memory.
    STREAMPLACE(const STREAMCURSOR& cursor, unsigned long long position) noexcept;

    [[nodiscard]] const char* GetText() const noexcept { return mText.data(); }

private:
    std::array<char, 96> mText{};  // longer than three numbers of 20 digits and their words
};

}  // namespace MLCore
