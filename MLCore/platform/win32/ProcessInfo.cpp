#include <MLCore/platform/ProcessInfo.h>
#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

std::string ExecutablePath() {
    std::string path(MAX_PATH, '\0');
    for (;;) {
        const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);  // a full buffer holds a cut path
    }
}

}  // namespace MLCore::platform
