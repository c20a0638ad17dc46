#include <MLCore/platform/File.h>
#include <MLCore/platform/common/SystemSide.h>

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace MLCore::platform {

/// One write per text, past the C library's buffers: texts of several threads do not mix.
void SystemDebugOutput(const char* text) noexcept {
    const int savedError = errno;
    static_cast<void>(FileAppend(STDERR_FILENO, text, std::strlen(text)));
    errno = savedError;
}

}  // namespace MLCore::platform
