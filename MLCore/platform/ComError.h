#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

#include <string>

namespace MLCore::platform {

/// The content of a COM error, in types that need no Windows header.
struct COMERRORPARTS {
    unsigned int code = 0;            ///< the HRESULT
    IErrorInfo* errorInfo = nullptr;  ///< one reference that the receiver must release, or null
    std::string text;                 ///< never empty: description, system message, or a text made of the code
};

/// Returns the content of a COM error.
///
/// The text is the first of these that is not empty:
/// 1. the description in the error information, in code page 1252;
/// 2. the system's message for the HRESULT, without a line end at the end;
/// 3. `IDispatch error #n` for 0x80040200 + n, with n from 1 to 65023;
/// 4. `Unknown error 0xXXXXXXXX` with the code in upper-case hexadecimal digits.
///
/// \throws std::bad_alloc, without taking a reference
[[nodiscard]] MLCORE_API COMERRORPARTS ReadComError(const _com_error& error);

/// Adds a reference to `errorInfo`; null is allowed.
MLCORE_API void AddRefErrorInfo(IErrorInfo* errorInfo) noexcept;

/// Releases a reference to `errorInfo`; null is allowed. The caller must not use the pointer afterwards.
MLCORE_API void ReleaseErrorInfo(IErrorInfo* errorInfo) noexcept;

}  // namespace MLCore::platform
