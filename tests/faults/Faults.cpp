// Apart from the code that allocates: a compiler that sees both takes the pair for mismatched.
#include <faults/Faults.h>

#include <cstddef>
#include <cstdlib>
#include <new>

FAULTS gFaults;

void* operator new(std::size_t size) {
    void* const memory = gFaults.Fails() ? nullptr : std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++gFaults.live;
    return memory;
}
void operator delete(void* memory) noexcept {
    gFaults.live -= memory != nullptr ? 1 : 0;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

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
