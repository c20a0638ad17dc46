// Apart from the code that allocates: a compiler that sees both takes the pair for mismatched.
#include <faults/Faults.h>

#include <cstddef>
#include <cstdlib>
#include <new>

#if defined(MLCORE_WRAPS_CALLS)
#include <dlfcn.h>
#include <link.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#endif

FAULTS gFaults;

// Every form but those of over-aligned types, which the library has none of: a sanitizer brings its own of what is
// missing.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* const memory = gFaults.Fails(FAULTS::Kind::Memory) ? nullptr : std::malloc(size != 0 ? size : 1);
    gFaults.live += memory != nullptr ? 1 : 0;
    return memory;
}
void* operator new(std::size_t size) {
    void* const memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return operator new(size, std::nothrow); }

void operator delete(void* memory) noexcept {
    gFaults.live -= memory != nullptr ? 1 : 0;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { operator delete(memory); }
void operator delete[](void* memory) noexcept { operator delete(memory); }
void operator delete[](void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { operator delete(memory); }

#if defined(MLCORE_WRAPS_CALLS)
namespace {

using Kind = FAULTS::Kind;

bool Fails(Kind kind, int errorNumber) {
    const bool fails = gFaults.Fails(kind);
    errno = fails ? errorNumber : errno;
    return fails;
}
bool Fails() { return Fails(Kind::Call, EIO); }
bool FailsOrStops() { return Fails() || Fails(Kind::Interruption, EINTR); }
std::size_t Cut(std::size_t count) { return count > 1 && gFaults.Fails(Kind::Cut) ? count / 2 : count; }

template <class HANDLE>
HANDLE Counted(HANDLE handle, HANDLE none) {
    gFaults.handles += handle != none ? 1 : 0;
    return handle;
}

}  // namespace

// The linker sends the library's calls here.
extern "C" {

#define MLCORE_WRAP(result, name, parameters, arguments, fails, failure) \
    result __real_##name parameters;                                     \
    result __wrap_##name parameters;                                     \
    result __wrap_##name parameters { return (fails) ? failure : __real_##name arguments; }

MLCORE_WRAP(void*, malloc, (std::size_t size), (size), Fails(Kind::Memory, ENOMEM), nullptr)
MLCORE_WRAP(void*, calloc, (std::size_t count, std::size_t size), (count, size), Fails(Kind::Memory, ENOMEM), nullptr)
MLCORE_WRAP(void*, realloc, (void* memory, std::size_t size), (memory, size), Fails(Kind::Memory, ENOMEM), nullptr)
MLCORE_WRAP(int, sodium_init, (), (), Fails(Kind::Memory, ENOMEM), -1)

MLCORE_WRAP(ssize_t, read, (int file, void* buffer, std::size_t count), (file, buffer, Cut(count)), FailsOrStops(), -1)
MLCORE_WRAP(ssize_t, write, (int file, const void* bytes, std::size_t count), (file, bytes, Cut(count)), FailsOrStops(),
            -1)
MLCORE_WRAP(ssize_t, getrandom, (void* buffer, std::size_t count, unsigned int flags), (buffer, Cut(count), flags),
            FailsOrStops(), -1)
// Here and for open(): arguments of any number are passed as others are.
MLCORE_WRAP(int, fcntl, (int file, int command, long argument), (file, command, argument), Fails(), -1)
MLCORE_WRAP(int, ftruncate, (int file, off_t size), (file, size), FailsOrStops(), -1)
MLCORE_WRAP(off_t, lseek, (int file, off_t offset, int from), (file, offset, from), Fails(), -1)
MLCORE_WRAP(int, fstat, (int file, struct stat* status), (file, status), Fails(), -1)
MLCORE_WRAP(int, unlink, (const char* path), (path), Fails(), -1)
MLCORE_WRAP(char*, getcwd, (char* buffer, std::size_t size), (buffer, size), Fails(), nullptr)
MLCORE_WRAP(ssize_t, readlink, (const char* path, char* buffer, std::size_t size), (path, buffer, size), Fails(), -1)
MLCORE_WRAP(std::tm*, localtime_r, (const std::time_t* time, std::tm* fields), (time, fields), Fails(), nullptr)
MLCORE_WRAP(long, sysconf, (int name), (name), Fails(), -1)
MLCORE_WRAP(void*, dlopen, (const char* path, int flags), (path, flags), Fails(), nullptr)
MLCORE_WRAP(int, dlinfo, (void* module, int request, void* result), (module, request, result), Fails(), -1)
MLCORE_WRAP(int, dladdr1, (const void* address, Dl_info* info, void** extra, int flags), (address, info, extra, flags),
            Fails(), 0)
MLCORE_WRAP(int, crypto_stream_xchacha20_xor,
            (unsigned char* result, const unsigned char* bytes, unsigned long long size, const unsigned char* nonce,
             const unsigned char* key),
            (result, bytes, size, nonce, key), Fails(), -1)

int __real_open(const char* path, int flags, mode_t mode);
int __wrap_open(const char* path, int flags, mode_t mode) {
    return FailsOrStops() ? -1 : Counted(__real_open(path, flags, mode), -1);
}
int __real_close(int file);
int __wrap_close(int file) {
    const int result = __real_close(file);  // whatever is told
    gFaults.handles -= result == 0 ? 1 : 0;
    return FailsOrStops() ? -1 : result;
}
void* __real_sodium_malloc(std::size_t size);
void* __wrap_sodium_malloc(std::size_t size) {
    return Fails(Kind::Memory, ENOMEM) ? nullptr : Counted<void*>(__real_sodium_malloc(size), nullptr);
}
void __real_sodium_free(void* memory);
void __wrap_sodium_free(void* memory) {
    gFaults.handles -= memory != nullptr ? 1 : 0;
    __real_sodium_free(memory);
}
}
#endif
