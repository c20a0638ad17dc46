#pragma once

#include <MLCore/platform/Export.h>

#include <cstdint>
#include <optional>
#include <string>

namespace MLCore::platform {

/// Settings that the user of the machine has made. They are read and never written.
///
/// A setting is found by a key and a name, such as the key `MLCore\Log` and the name `Level`. A key is a sequence of
/// names joined by `\`. All names are compared without regard to ASCII case.
/// - On Windows it is a value under `HKEY_CURRENT_USER\Software\MLCore\Log`: a DWORD or a text.
/// - On Linux the key's first name is a file, `$XDG_CONFIG_HOME/MLCore.ini` or, without that variable,
///   `$HOME/.config/MLCore.ini`; the rest is a section in it, empty for the lines before the first section. The file's
///   first name keeps its case.
///
/// Such a file consists of lines: `[section]`, `name = value`, and comments that start with `;` or `#`. Blanks around
/// names and values do not count. If several lines have one setting, the first counts; lines in another format are
/// ignored. Anything that is not a plain file, or is larger than 1 MiB, holds no settings.

/// The setting as a text: on Windows in the ANSI code page, on Linux the bytes of the file. A number is returned in
/// decimal.
///
/// \return nothing when the setting does not exist, the file cannot be read, or the key or name is null, empty or
///         contains `/`, a line end, or `.` or `\` at its start.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::optional<std::string> ReadPreferenceText(const char* key, const char* name);

/// The setting as a number: a decimal number with an optional sign, from -2147483648 to 2147483647.
///
/// A registry DWORD is taken as signed.
/// \return nothing when ReadPreferenceText returns nothing, or a text that is not such a number.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::optional<std::int32_t> ReadPreferenceNumber(const char* key, const char* name);

}  // namespace MLCore::platform
