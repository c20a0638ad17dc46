/// Names that are compared without regard to the case of A to Z.
#pragma once

#include <algorithm>
#include <string_view>

namespace MLCore::platform {

[[nodiscard]] constexpr bool IsSameName(std::string_view left, std::string_view right) noexcept {
    const auto lower = [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [lower](char one, char other) { return lower(one) == lower(other); });
}

}  // namespace MLCore::platform
