#pragma once

#include <MLCore/platform/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <string>

namespace MLCore {

/// One e-mail address, split into its local part and its domain, with a check of its syntax by RFC 822:
///
///     local part   words separated by dots: atoms (john.smith), quoted strings ("John, jr.")
///     domain       words separated by dots: atoms (example.com), literals ([10.0.0.1])
///     atom         characters 33..126 except ( ) < > @ , ; : \ " [ ] and the dot
///     "..."        any characters; a backslash makes the next one ordinary. CR and LF need a backslash
///     [...]        the same; a further [ needs a backslash too
///
/// One dot after the last word is accepted in both parts, on purpose: "john.@example.com.".
///
/// Only the spelling is checked. A domain that does not exist is accepted, and the lengths are not limited as in RFC
/// 5321. Display names ("John <john@example.com>"), comments and spaces between words are refused. Letters outside
/// ASCII are accepted only inside quotes and brackets, as bytes of any encoding.
///
///     CEMAIL email("\"j@s\".smith@example.com");
///     email.IsValid();       // 1
///     email.GetLocalPart();  // "j@s".smith, with the quotes
///
/// A value type. It holds any text, valid or not. No function fails, except for lack of memory (std::bad_alloc). Every
/// function takes linear time.
class MLCORE_API CEMAIL {
public:
    /// Both parts are empty.
    CEMAIL() noexcept = default;
    /// Splits at the first '@' with an even number of double quotes before it; quotes after a backslash count too.
    /// Without such an '@' the whole text is the local part. Null means the empty text.
    CEMAIL(const char* address);
    /// Stores the parts unchanged. Null means the empty text.
    CEMAIL(const char* localPart, const char* domain);

    [[nodiscard]] const std::string& GetLocalPart() const noexcept { return mLocalPart; }
    [[nodiscard]] const std::string& GetDomain() const noexcept { return mDomain; }

    /// Empties both parts.
    void Clear() noexcept;
    /// 1 when both parts are empty, else 0.
    [[nodiscard]] int IsNull() const noexcept;
    /// 1 when both parts are not empty and are spelled as above, else 0.
    [[nodiscard]] int IsValid() const noexcept;
    /// The address, "local part@domain", valid or not; empty when one of the parts is empty.
    [[nodiscard]] std::string ToString() const;

    /// Compare byte by byte, the local part first. Case, quotes and trailing dots count.
    friend bool operator==(const CEMAIL&, const CEMAIL&) noexcept = default;
    friend std::strong_ordering operator<=>(const CEMAIL&, const CEMAIL&) noexcept = default;

private:
    [[nodiscard]] int CheckLocalPart() const noexcept;
    [[nodiscard]] int CheckDomaine() const noexcept;

    std::string mLocalPart;
    std::string mDomain;
};

}  // namespace MLCore

template <>
struct std::hash<MLCore::CEMAIL> {
    std::size_t operator()(const MLCore::CEMAIL& email) const noexcept {
        const std::hash<std::string> hashOf;
        return hashOf(email.GetLocalPart()) * 31U + hashOf(email.GetDomain());
    }
};
