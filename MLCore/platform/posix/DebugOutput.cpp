#include <MLCore/platform/SystemSide.h>

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace MLCore::platform {

/// One write per text, past the C library's buffers: texts of several threads do not mix.
void SystemDebugOutput(const char* text) noexcept {
    const int savedError = errno;
    std::size_t left = std::strlen(text);
    while (left != 0) {
        const ssize_t written = write(STDERR_FILENO, text, left);
        if (written == 0 || (written < 0 && errno != EINTR)) {
            break;
        }
        if (written > 0) {
            text += written;
            left -= static_cast<std::size_t>(written);
        }
    }
    errno = savedError;
}

}  // namespace MLCore::platform
