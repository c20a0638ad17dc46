#pragma once

#include <array>
#include <string_view>

namespace MLCore {

/// A set of some of the 256 characters: one look-up finds whether it has a character.
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
