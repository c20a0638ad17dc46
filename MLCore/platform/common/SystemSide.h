/// The functions that each system defines for the shared sources of this folder.
#pragma once

#include <optional>
#include <string>

namespace MLCore::platform {

/// DebugOutput() without a sink. The text is not null.
void SystemDebugOutput(const char* text) noexcept;

/// ReadPreferenceText() for a key and a name that a setting can have.
[[nodiscard]] std::optional<std::string> SystemPreferenceText(const char* key, const char* name);

}  // namespace MLCore::platform
