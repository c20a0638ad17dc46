#include <MLCore/platform/DebugOutput.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>

namespace MLCore::platform {

namespace {

std::atomic<DEBUGSINK> gSink = nullptr;

/// One write per text, past the C library's buffers: texts of several threads do not mix.
void WriteToStandardError(const char* text) noexcept {
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

}  // namespace

void DebugOutput(const char* text) noexcept {
    if (text == nullptr) {
        return;
    }
    const DEBUGSINK sink = gSink.load();
    if (sink != nullptr) {
        sink(text);
    } else {
        WriteToStandardError(text);
    }
}

DEBUGSINK SetDebugSink(DEBUGSINK sink) noexcept { return gSink.exchange(sink); }

}  // namespace MLCore::platform
