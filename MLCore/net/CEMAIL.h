#pragma once

#include <MLCore/platform/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <string>

namespace MLCore {

/// One e-mail address, split into its local part and its domain, with a check of its syntax after RFC 822:
///
///     local part   words with dots between: atoms (john.smith), quoted strings ("John, jr.")
///     domain       words with dots between: atoms (example.com), literals ([10.0.0.1])
///     atom         characters 33..126 but ( ) < > @ , ; : \ " [ ] and the dot
///     "..."        any characters; a backslash takes the next one as it is. Neither CR nor LF without a backslash
///     [...]        the same, and no further [ without a backslash
///
/// One dot behind the last word is accepted in both parts, on purpose: "john.@example.com.".
///
/// It is a check of the spelling only: whether the domain exists is not asked, lengths are not limited as RFC 5321 does,
/// and display names ("John <john@example.com>"), comments and spaces between words are refused. Letters beyond ASCII are
/// accepted inside quotes and brackets only, as bytes of any encoding.
///
///     CEMAIL email("\"j@s\".smith@example.com");
///     email.IsValid();       // 1
///     email.GetLocalPart();  // "j@s".smith, with the quotes
///
/// A value type. It holds any text, valid or not, and nothing fails but for want of memory. Every function takes linear
/// time.
class MLCORE_API CEMAIL {
public:
    /// Both parts are empty.
    CEMAIL() noexcept = default;
    /// Splits at the first '@' with an even number of double quotes before it, those behind a backslash counted too.
    /// Without one, all is local part. Null is the empty text.
    CEMAIL(const char* address);
    /// Stores the parts as they are. Null is the empty text.
    CEMAIL(const char* localPart, const char* domain);

    [[nodiscard]] const std::string& GetLocalPart() const noexcept { return mLocalPart; }
    [[nodiscard]] const std::string& GetDomain() const noexcept { return mDomain; }

    /// Empties both parts.
    void Clear() noexcept;
    /// 1 when both parts are empty, else 0.
    [[nodiscard]] int IsNull() const noexcept;
    /// 1 when both parts are there and spelled as above, else 0.
    [[nodiscard]] int IsValid() const noexcept;
    /// The address, "local part@domain", valid or not; empty when one of the parts is.
    [[nodiscard]] std::string ToString() const;

    /// Byte by byte, the local part first: case counts, and so do quotes and trailing dots.
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
