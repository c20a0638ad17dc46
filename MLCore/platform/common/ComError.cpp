#include <MLCore/platform/ComError.h>

#include <MLCore/platform/WinTypes.h>
#include <MLCore/platform/common/ComErrorText.h>

#include <cstdio>

namespace MLCore::platform {

std::string ComErrorText(unsigned int code) {
    const unsigned int dispatchCode = DispatchCodeOf(code);
    char text[32] = "";
    if (dispatchCode != 0) {
        std::snprintf(text, sizeof(text), "IDispatch error #%u", dispatchCode);
    } else {
        std::snprintf(text, sizeof(text), "Unknown error 0x%X", code);
    }
    return text;
}

void AddRefErrorInfo(IErrorInfo* errorInfo) noexcept {
    if (errorInfo != nullptr) {
        errorInfo->AddRef();
    }
}

void ReleaseErrorInfo(IErrorInfo* errorInfo) noexcept {
    if (errorInfo != nullptr) {
        errorInfo->Release();
    }
}

}  // namespace MLCore::platform
