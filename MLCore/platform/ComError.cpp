#include <MLCore/platform/ComError.h>
#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

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
