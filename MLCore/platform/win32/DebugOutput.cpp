#include <MLCore/platform/common/SystemSide.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

void SystemDebugOutput(const char* text) noexcept {
    const DWORD savedError = GetLastError();
    OutputDebugStringA(text);
    SetLastError(savedError);
}

}  // namespace MLCore::platform
