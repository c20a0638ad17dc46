#include <support/SharedModule.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace support {

#if defined(_WIN32)
SHAREDMODULE::SHAREDMODULE(const char* file) : mHandle(LoadLibraryA(file)) {}
#else
SHAREDMODULE::SHAREDMODULE(const char* file) : mHandle(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {}
#endif

SHAREDMODULE::~SHAREDMODULE() { Close(); }

void SHAREDMODULE::Close() {
    if (mHandle != nullptr) {
#if defined(_WIN32)
        FreeLibrary(static_cast<HMODULE>(mHandle));
#else
        dlclose(mHandle);
#endif
        mHandle = nullptr;
    }
}

void* SHAREDMODULE::Find(const char* name) const {
#if defined(_WIN32)
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(mHandle), name));
#else
    return dlsym(mHandle, name);
#endif
}

}  // namespace support
