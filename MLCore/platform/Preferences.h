#pragma once

#include <MLCore/platform/Export.h>

#include <cstdint>
#include <optional>
#include <string>

namespace MLCore::platform {

/// Settings that the user of the machine has made, read and never written.
///
/// A setting is found by a key, names joined by `\`, and a name, all compared without regard to ASCII case:
/// the key `MLCore\Log` and the name `Level`, say.
/// - On Windows it is a value under `HKEY_CURRENT_USER\Software\MLCore\Log`: a DWORD or a text.
/// - On Linux the key's first name is a file, `$XDG_CONFIG_HOME/MLCore.ini` or, without that variable,
///   `$HOME/.config/MLCore.ini`; the rest is a section in it, empty for the lines before the first section. The file's
///   first name keeps its case.
///
/// Such a file is made of lines: `[section]`, `name = value`, and comments that start with `;` or `#`. Blanks around
/// names and values do not count. Of several lines for one setting the first counts; lines of another form are skipped.
/// What is no plain file, or larger than 1 MiB, holds no settings.

/// The setting as a text, as it stands: on Windows in the ANSI code page, on Linux the bytes of the file.
///
/// \return nothing when there is no such setting, the file cannot be read, or the key or name is null, empty or
///         contains `/`, a `.` or `\` at its start or a line end. A number is told in decimal.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::optional<std::string> ReadPreferenceText(const char* key, const char* name);

/// The setting as a number: a decimal number with an optional sign, from -2147483648 to 2147483647.
///
/// A registry DWORD is taken as signed.
/// \return nothing when ReadPreferenceText gives nothing, or a text that is no such number.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::optional<std::int32_t> ReadPreferenceNumber(const char* key, const char* name);

}  // namespace MLCore::platform
