#pragma once

#include <concepts>
#include <string_view>

namespace MLCore {

/// A text from outside that a failure shows in quotes: cut after 60 characters, with control characters in hexadecimal.
struct QUOTED {
    std::string_view text;
};

/// The path of a file, shown in the same way, but cut at its front: the end names the file.
struct QUOTEDPATH {
    std::string_view path;
};

/// Marks `text` to be shown in quotes in the text of a failure: `FailWith(kErrUnknownKey, "no key ", Quoted(key))`.
[[nodiscard]] constexpr QUOTED Quoted(std::string_view text) noexcept { return {text}; }
[[nodiscard]] constexpr QUOTEDPATH QuotedPath(std::string_view path) noexcept { return {path}; }

/// One part of the text that Require() and FailWith() compose: an unchanged text, a quoted text or path, or a number.
/// Texts are borrowed until the call ends; a null pointer means the empty text.
class FAILUREPART {
public:
    explicit constexpr FAILUREPART(std::string_view text) noexcept : mKind(KIND::Text), mText(text) {}
    explicit constexpr FAILUREPART(const char* text) noexcept
        : FAILUREPART(text != nullptr ? std::string_view(text) : std::string_view()) {}
    explicit constexpr FAILUREPART(QUOTED quoted) noexcept : mKind(KIND::Quoted), mText(quoted.text) {}
    explicit constexpr FAILUREPART(QUOTEDPATH quoted) noexcept : mKind(KIND::Path), mText(quoted.path) {}
    explicit constexpr FAILUREPART(std::signed_integral auto number) noexcept : mKind(KIND::Signed), mSigned(number) {}
    explicit constexpr FAILUREPART(std::unsigned_integral auto number) noexcept
        : mKind(KIND::Unsigned), mUnsigned(number) {}
    explicit constexpr FAILUREPART(double number) noexcept : mKind(KIND::Double), mDouble(number) {}
    /// A letter and a truth value are not numbers.
    explicit FAILUREPART(char) = delete;
    explicit FAILUREPART(bool) = delete;

private:
    friend class FAILURETEXT;
    enum class KIND : unsigned char { Text, Quoted, Path, Signed, Unsigned, Double };

    KIND mKind;
    std::string_view mText;
    union {
        long long mSigned = 0;
        unsigned long long mUnsigned;
        double mDouble;
    };
};

}  // namespace MLCore
