#include <MLCore/platform/ProcessInfo.h>

#include <unistd.h>

#include <string_view>

namespace MLCore::platform {

namespace {

/// The system marks the path of a program whose file was removed or replaced while it runs.
std::string WithoutMark(std::string path) {
    constexpr std::string_view kMark = " (deleted)";
    if (path.ends_with(kMark) && access(path.c_str(), F_OK) != 0) {
        path.resize(path.size() - kMark.size());
    }
    return path;
}

}  // namespace

std::string ExecutablePath() {
    std::string path(256, '\0');
    for (;;) {
        const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) {
            return {};
        }
        if (static_cast<std::size_t>(length) < path.size()) {
            path.resize(static_cast<std::size_t>(length));
            return WithoutMark(path);
        }
        path.resize(path.size() * 2);  // a full buffer may hold a cut path
    }
}

}  // namespace MLCore::platform
