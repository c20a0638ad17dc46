#include <MLCore/platform/ProcessInfo.h>
#include <unistd.h>

namespace MLCore::platform {

std::string ExecutablePath() {
    std::string path(256, '\0');
    for (;;) {
        const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) {
            return {};
        }
        if (static_cast<std::size_t>(length) < path.size()) {
            path.resize(static_cast<std::size_t>(length));
            return path;
        }
        path.resize(path.size() * 2);  // a full buffer may hold a cut path
    }
}

}  // namespace MLCore::platform
