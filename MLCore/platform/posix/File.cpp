#include <MLCore/platform/File.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <initializer_list>
#include <memory>

namespace MLCore::platform {

namespace {

static_assert(sizeof(off_t) == sizeof(std::int64_t));

/// The system takes less than 2 GiB in one call.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

/// Repeats a system call that a signal interrupts.
template <class Call>
auto Uninterrupted(Call&& call) noexcept {
    decltype(call()) result = 0;
    do {
        result = call();
    } while (result == -1 && errno == EINTR);
    return result;
}

bool Fail(int errorNumber) noexcept {
    errno = errorNumber;
    return false;
}

int SystemFlags(unsigned int flags) noexcept {
    // Not blocking: to open a pipe would wait for its other end.
    int result = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    if ((flags & kFileWrite) == 0) {
        result |= O_RDONLY;
    } else {
        result |= (flags & kFileRead) != 0 ? O_RDWR : O_WRONLY;
    }
    constexpr struct {
        unsigned int flag;
        int systemFlag;
    } kRows[] = {{kFileAppend, O_APPEND}, {kFileCreate, O_CREAT}, {kFileExclusive, O_EXCL}, {kFileTruncate, O_TRUNC}};
    for (const auto& row : kRows) {
        result |= (flags & row.flag) != 0 ? row.systemFlag : 0;
    }
    return result;
}

/// Refuses a folder, which can be opened but not read, and lets anything else that is not a plain file wait for its
/// data.
bool Settle(int descriptor) noexcept {
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) {
        return false;
    }
    if (S_ISDIR(status.st_mode)) {
        return Fail(EISDIR);
    }
    if (S_ISREG(status.st_mode)) {
        return true;
    }
    const int flags = fcntl(descriptor, F_GETFL);
    return flags != -1 && fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK) != -1;
}

/// Blocks the signals of a failing write in this thread, and removes one that was raised.
class WRITESIGNALGUARD {
public:
    WRITESIGNALGUARD() noexcept {
        const sigset_t held = SetOf({SIGPIPE, SIGXFSZ});
        pthread_sigmask(SIG_BLOCK, &held, &mBefore);
    }
    ~WRITESIGNALGUARD() {
        const int errorNumber = errno;
        Take(errorNumber == EPIPE ? SIGPIPE : errorNumber == EFBIG ? SIGXFSZ : 0);
        pthread_sigmask(SIG_SETMASK, &mBefore, nullptr);
        errno = errorNumber;
    }
    WRITESIGNALGUARD(const WRITESIGNALGUARD&) = delete;
    WRITESIGNALGUARD& operator=(const WRITESIGNALGUARD&) = delete;

private:
    static sigset_t SetOf(std::initializer_list<int> signals) noexcept {
        sigset_t set = {};
        sigemptyset(&set);
        for (const int each : signals) {
            sigaddset(&set, each);
        }
        return set;
    }
    /// One that was held back before is not ours to take.
    void Take(int raised) noexcept {
        if (raised != 0 && sigismember(&mBefore, raised) == 0) {
            const sigset_t set = SetOf({raised});
            constexpr timespec kNoTime = {};
            Uninterrupted([&] { return sigtimedwait(&set, nullptr, &kNoTime); });
        }
    }

    sigset_t mBefore = {};
};

int Descriptor(FILEHANDLE file) noexcept { return static_cast<int>(file); }

}  // namespace

std::string AbsolutePath(const char* path) {
    const std::unique_ptr<char, decltype(&std::free)> folder(
        path[0] == '/' || path[0] == '\0' ? nullptr : getcwd(nullptr, 0), &std::free);
    return folder ? std::string(folder.get()) + '/' + path : std::string(path);
}

FILEHANDLE FileOpen(const char* path, unsigned int flags) noexcept {
    if (path == nullptr || !AreFileFlagsValid(flags)) {
        errno = EINVAL;
        return kNoFile;
    }
    const int descriptor = Uninterrupted([&] { return open(path, SystemFlags(flags), 0666); });
    if (descriptor != -1 && !Settle(descriptor)) {
        const int errorNumber = errno;
        close(descriptor);
        errno = errorNumber;
        return kNoFile;
    }
    return descriptor;
}

bool FileClose(FILEHANDLE file) noexcept {
    // Interrupted or not, the descriptor is free then and may belong to somebody else already.
    return close(Descriptor(file)) == 0 || errno == EINTR;
}

std::int64_t FileRead(FILEHANDLE file, void* buffer, std::size_t count) noexcept {
    return Uninterrupted([&] { return read(Descriptor(file), buffer, std::min(count, kMostAtOnce)); });
}

std::size_t FileWrite(FILEHANDLE file, const void* buffer, std::size_t count) noexcept {
    // A pipe without a reader and a file at its limit are failures like others, and must not end the process.
    const WRITESIGNALGUARD guard;
    const char* const bytes = static_cast<const char*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        const std::size_t some = std::min(count - done, kMostAtOnce);
        const ssize_t written = Uninterrupted([&] { return write(Descriptor(file), bytes + done, some); });
        if (written <= 0) {
            errno = written == 0 ? EIO : errno;
            break;
        }
        done += static_cast<std::size_t>(written);
    }
    return done;
}

std::size_t FileAppend(FILEHANDLE file, const void* buffer, std::size_t count) noexcept {
    return FileWrite(file, buffer, count);  // O_APPEND: each write finds the end and writes there in one step
}

bool FileSeek(FILEHANDLE file, std::uint64_t offset) noexcept {
    return lseek(Descriptor(file), static_cast<off_t>(offset), SEEK_SET) != -1;
}

std::int64_t FileSize(FILEHANDLE file) noexcept { return lseek(Descriptor(file), 0, SEEK_END); }

bool FileResize(FILEHANDLE file, std::uint64_t size) noexcept {
    const WRITESIGNALGUARD guard;
    return Uninterrupted([&] { return ftruncate(Descriptor(file), static_cast<off_t>(size)); }) == 0;
}

bool FileRemove(const char* path) noexcept { return path == nullptr ? Fail(EINVAL) : unlink(path) == 0; }

}  // namespace MLCore::platform
