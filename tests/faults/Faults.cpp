// Apart from the code that allocates: a compiler that sees both takes the pair for mismatched.
#include <faults/Faults.h>

#include <cstddef>
#include <cstdlib>
#include <new>

FAULTS gFaults;

// Every form but those of over-aligned types, which the library has none of: a sanitizer brings its own of what is missing.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* const memory = gFaults.Fails() ? nullptr : std::malloc(size != 0 ? size : 1);
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

#if defined(MLCORE_WRAPS_MALLOC)
// The linker sends the library's calls here.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
void* __wrap_malloc(std::size_t size) { return gFaults.Fails() ? nullptr : __real_malloc(size); }
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return gFaults.Fails() ? nullptr : __real_calloc(count, size);
}
void* __wrap_realloc(void* memory, std::size_t size) {
    return gFaults.Fails() ? nullptr : __real_realloc(memory, size);
}
}
#endif
