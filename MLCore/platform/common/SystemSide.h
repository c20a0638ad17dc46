/// What each system defines for the sources of this folder that both share.
#pragma once

#include <optional>
#include <string>

namespace MLCore::platform {

/// DebugOutput() while no sink is set, of a text that is not null.
void SystemDebugOutput(const char* text) noexcept;

/// ReadPreferenceText() of a key and a name that can be those of a setting.
[[nodiscard]] std::optional<std::string> SystemPreferenceText(const char* key, const char* name);

}  // namespace MLCore::platform
