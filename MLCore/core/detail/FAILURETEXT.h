#pragma once

#include <MLCore/core/FAILUREPART.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace MLCore {

/// The system's message for a Win32 code or an HRESULT, without the blanks, the full stop and the line end at its end;
/// empty when the system has none.
[[nodiscard]] std::string SystemReason(unsigned int code);

/// The text of a failure, composed without allocations, so that it can also report a lack of memory. A text that does
/// not fit is cut and ends in "...".
class FAILURETEXT {
public:
    FAILURETEXT() = default;
    explicit FAILURETEXT(std::initializer_list<FAILUREPART> parts) noexcept;

    void Add(const FAILUREPART& part) noexcept;
    void Add(std::string_view text) noexcept;
    [[nodiscard]] const char* Get() const noexcept { return mText.data(); }

private:
    void AddQuoted(std::string_view before, std::string_view text, std::string_view after) noexcept;
    template <class Number>
    void AddNumber(Number number) noexcept;

    static constexpr std::size_t kMaxLength = 300;
    static constexpr std::size_t kMaxQuoted = 60;

    std::array<char, kMaxLength + 1> mText{};
    std::size_t mLength = 0;
};

}  // namespace MLCore
