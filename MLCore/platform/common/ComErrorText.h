/// The texts of COM errors for which the system has no message.
#pragma once

#include <string>

namespace MLCore::platform {

/// n for 0x80040200 + n up to 0x8004FFFF, the codes that dispatch interfaces define for themselves; else 0.
[[nodiscard]] constexpr unsigned short DispatchCodeOf(unsigned int code) noexcept {
    constexpr unsigned int kFirst = 0x80040200;
    return code >= kFirst && code <= 0x8004FFFF ? static_cast<unsigned short>(code - kFirst) : 0;
}

/// The last two texts of ReadComError().
[[nodiscard]] std::string ComErrorText(unsigned int code);

}  // namespace MLCore::platform
