#pragma once

#include <MLCore/platform/Export.h>

#include <string>

namespace MLCore::platform {

/// The calling thread's last system error as a Win32 error code; 0 when there is none. Reading it changes nothing.
///
/// The code means the same on every system: 2 file not found, 5 access denied, 6 invalid handle, 8 not enough memory,
/// 80 file exists, 87 invalid parameter, 112 disk full, and so on. On a system with `errno`, its value is looked up in
/// a table. An `errno` without a counterpart gives 31 (general failure), so an error is never reported as success.
[[nodiscard]] MLCORE_API unsigned int LastError() noexcept;

/// The HRESULT of a plain Win32 code: 5 gives 0x80070005. A failure HRESULT is returned unchanged.
[[nodiscard]] constexpr unsigned int ResultOfSystemCode(unsigned int code) noexcept {
    return (code & 0x80000000U) != 0 ? code : 0x80070000U | (code & 0xFFFFU);
}

/// The system's text for a failure HRESULT, or the empty string when the system has none.
///
/// \param code  an HRESULT such as 0x80070005 (a Win32 code n is 0x80070000 + n) or a plain Win32 code.
///
/// The wording, the language and a line end at the end are the system's: show the text, do not compare it. Windows also
/// knows many plain codes. Linux only knows failure HRESULTs: those of the Win32 facility, by the C library's
/// untranslated error texts, and the common ones of COM.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string SystemMessage(unsigned int code);

}  // namespace MLCore::platform
