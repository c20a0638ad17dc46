#pragma once

#include <string_view>

namespace MLCore {

/// Walks the steps of a key path one by one, without allocations. CKEYPARSER and COBJECT read paths with it.
///
///     KEYSTEPS steps(path);
///     do {
///         const KEYSTEPS::STEP step = steps.Take();
///     } while (!steps.IsEnd());
class KEYSTEPS {
public:
    struct STEP {
        bool isIndex;
        std::string_view name;  ///< empty for an index; valid while the path is
        long index;             ///< 0 for a name
    };

    explicit KEYSTEPS(std::string_view keyPath) noexcept : mPath(keyPath), mRest(keyPath) {}

    [[nodiscard]] bool IsEnd() const noexcept { return mRest.empty(); }
    /// Takes the step at the front of a path that is not at its end. Fails with kErrUnknownKey (151) when the step, or
    /// what follows it, is malformed.
    STEP Take();

    /// Whether `text` is a name, and so a path of one step.
    [[nodiscard]] static bool IsName(std::string_view text) noexcept;
    /// Fails with kErrUnknownKey when `keyPath` is malformed; the empty path is malformed.
    static void Check(std::string_view keyPath);

private:
    [[nodiscard]] bool IsAt(char wanted) const noexcept { return !mRest.empty() && mRest.front() == wanted; }
    [[nodiscard]] std::string_view TextAhead() const noexcept;
    long TakeIndex();

    void RequireAt(bool condition, const char* wanted) const;

    std::string_view mPath;
    std::string_view mRest;
};

}  // namespace MLCore
