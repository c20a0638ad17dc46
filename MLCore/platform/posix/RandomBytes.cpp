#include <MLCore/platform/RandomBytes.h>

#include <sys/random.h>

#include <cerrno>

namespace MLCore::platform {

bool RandomBytes(void* buffer, std::size_t size) noexcept {
    unsigned char* at = static_cast<unsigned char*>(buffer);
    while (size != 0) {
        const ssize_t count = getrandom(at, size, 0);  // a large request may be cut by a signal
        if (count < 0 && errno != EINTR) {
            return false;
        }
        if (count > 0) {
            at += count;
            size -= static_cast<std::size_t>(count);
        }
    }
    return true;
}

}  // namespace MLCore::platform
