/// The checks that turn a status or a condition into a FrameworkException. Each returns when the check passes and throws
/// otherwise. The rest of the library, and applications that want failures of the same shape, call these instead of
/// throwing.
///
/// They are exported under their plain names (C linkage) so that code of any compiler can look them up. They throw all
/// the same: a compiler that takes C functions for non-throwing has to be told (MSVC: /EHs, not /EHsc).
/// A program that links the library statically cannot have C functions of these names.
#pragma once

#include <MLCore/core/FrameworkException.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

extern "C" {

/// Throws (errorClass, msg) when `errorClass` is not 0; returns 0 otherwise.
MLCORE_API short Fail(unsigned short errorClass, short msg);

/// Throws (code, code) when `code` is not 0.
MLCORE_API void FailOSErr(short code);

/// For the results of callbacks, where 1 means "stop" and is no failure: throws (code, code) when `code` is neither 0
/// nor 1.
MLCORE_API void FailCbErr(short code);

/// Throws a coherence error with `text` (copied; may be null) when `code` is not 0.
MLCORE_API void FailCoherErr(unsigned short code, const char* text);

/// Throws a coherence error on field number `field` with `text` (copied; may be null) when `code` is not 0.
MLCORE_API void FailCoherFieldErr(unsigned short code, unsigned short field, const char* text);

/// Throws (1, 0) when `value` is 0.
MLCORE_API void FailFALSE(int value);

/// Throws (1, 0) when `value` is not 0.
MLCORE_API void FailTRUE(int value);

/// Throws (-100, -100) when `pointer` is null.
MLCORE_API void FailNull(const void* pointer);

/// FailNull under its other name.
MLCORE_API void FailNullPtr(const void* pointer);

/// For system calls that answer 0 on failure: throws the system's last error when `result` is 0. On Linux `errno` is
/// first mapped to the Win32 code of the same meaning, so that codes mean the same on both systems.
MLCORE_API void FailLastError(int result);

/// Throws `hresult` when its low 16 bits are not 0. Only those are looked at: 0x80070000 passes although its severity
/// bit is set. That is the rule of this check.
MLCORE_API void FailOLEErr(unsigned int hresult);

}  // extern "C"

}  // namespace MLCore
