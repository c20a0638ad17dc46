#pragma once

#include <array>
#include <string_view>

namespace MLCore {

/// Some of the 256 characters, asked for without a comparison for each.
class CHARACTERSET {
public:
    explicit constexpr CHARACTERSET(std::string_view members) noexcept {
        for (const char member : members) {
            mHas[static_cast<unsigned char>(member)] = true;
        }
    }
    [[nodiscard]] constexpr bool Has(char character) const noexcept {
        return mHas[static_cast<unsigned char>(character)];
    }

private:
    std::array<bool, 256> mHas{};
};

}  // namespace MLCore
