#include <MLCore/platform/ProcessInfo.h>

#include <MLCore/platform/WinTypes.h>
#include <MLCore/platform/common/AnsiPath.h>

namespace MLCore::platform {

std::string ExecutablePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            return AnsiPath(std::wstring_view(path).substr(0, length));
        }
        path.resize(path.size() * 2);  // a full buffer holds a cut path
    }
}

}  // namespace MLCore::platform
