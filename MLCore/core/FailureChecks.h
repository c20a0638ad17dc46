/// The checks that turn a status or a condition into a FrameworkException. Each returns when the check passes and
/// throws otherwise. The library calls these instead of throwing, and applications may call them too.
///
/// New code calls Require() and FailWith(), which give the failure a text.
///
///     void CORDER::SetAmount(double amount) {
///         Require(amount >= 0, kErrInvalidArgument, "the amount of an order is ", amount, ", wanted 0 or more");
///         mAmount = amount;
///     }
///
/// The other checks take a status. They are exported under their plain names (C linkage), so that code of any compiler
/// can find them. They throw nevertheless: a compiler must not assume that C functions do not throw (MSVC: /EHs, not
/// /EHsc). A program that links the library statically cannot define C functions of these names.
#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FAILUREPART.h>
#include <MLCore/core/FrameworkException.h>
#include <MLCore/platform/Export.h>

#include <initializer_list>

namespace MLCore {

/// Throws (code, code) with the text of all parts, one after the other. The text is cut after 300 characters; without
/// memory for it, the failure has no text.
[[noreturn]] MLCORE_API void ThrowFailure(short code, std::initializer_list<FAILUREPART> parts);

/// Throws a Win32 code or HRESULT with the text of all parts and the system's message: "cannot open 'x.csv': No such
/// file or directory".
[[noreturn]] MLCORE_API void ThrowSystemCode(unsigned int code, std::initializer_list<FAILUREPART> parts);
/// The same with the system's last error.
[[noreturn]] MLCORE_API void ThrowLastError(std::initializer_list<FAILUREPART> parts);

/// Throws (code, code) with a text: one short English sentence that says what was found, where, and what was wanted.
/// The parts are texts, numbers, Quoted() texts and QuotedPath() paths, written one after the other without blanks
/// between them.
template <class... Parts>
[[noreturn]] void FailWith(short code, const Parts&... parts) {
    ThrowFailure(code, {FAILUREPART(parts)...});
}

/// Throws the system's last error, as FailLastError() does, with a text: the parts, ": ", and the system's message.
/// Must be called before anything else that may change the last error, so the parts must not call the system.
template <class... Parts>
[[noreturn]] void FailWithLastError(const Parts&... parts) {
    ThrowLastError({FAILUREPART(parts)...});
}

/// The same with `code`, a Win32 code or an HRESULT, instead of the last error.
template <class... Parts>
[[noreturn]] void FailWithSystemCode(unsigned int code, const Parts&... parts) {
    ThrowSystemCode(code, {FAILUREPART(parts)...});
}

/// Throws as FailWith() does unless `condition` holds. `code` must not be 0. The parts are always evaluated. If that
/// takes time, call FailWith() under an `if` instead.
template <class... Parts>
void Require(bool condition, short code, const Parts&... parts) {
    if (!condition) [[unlikely]] {
        FailWith(code, parts...);
    }
}

extern "C" {

/// Throws (errorClass, msg) when `errorClass` is not 0; returns 0 otherwise.
MLCORE_API short Fail(unsigned short errorClass, short msg);

/// Throws (code, code) when `code` is not 0.
MLCORE_API void FailOSErr(short code);

/// For the results of callbacks, where 1 means "stop" and is not a failure: throws (code, code) when `code` is neither
/// 0 nor 1.
MLCORE_API void FailCbErr(short code);

/// Throws a coherence error with `text` (copied; may be null) when `code` is not 0.
MLCORE_API void FailCoherErr(unsigned short code, const char* text);

/// Throws a coherence error on field number `field` with `text` (copied; may be null) when `code` is not 0.
MLCORE_API void FailCoherFieldErr(unsigned short code, unsigned short field, const char* text);

/// Throws (kErrBoolean, 0), which is (1, 0), when `value` is 0.
MLCORE_API void FailFALSE(int value);

/// Throws (kErrBoolean, 0) when `value` is not 0.
MLCORE_API void FailTRUE(int value);

/// Throws kErrNull (-100) when `pointer` is null.
MLCORE_API void FailNull(const void* pointer);

/// The same as FailNull().
MLCORE_API void FailNullPtr(const void* pointer);

/// For system calls that return 0 on failure: throws the system's last error when `result` is 0. On Linux `errno` is
/// first mapped to the Win32 code of the same meaning, so that codes mean the same on both systems. The failure has no
/// text; FailWithLastError() gives it one.
MLCORE_API void FailLastError(int result);

/// Throws `hresult` when its low 16 bits are not 0. This check ignores the other bits: 0x80070000 passes although its
/// severity bit is set.
MLCORE_API void FailOLEErr(unsigned int hresult);

}  // extern "C"

}  // namespace MLCore
