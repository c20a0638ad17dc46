#include <MLCore/platform/ModuleResources.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

HINSTANCE ModuleOf(const void* address) noexcept {
    constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    // Asked for null, the system gives the program.
    const bool isFound = address != nullptr && GetModuleHandleExA(kFlags, static_cast<const char*>(address), &module);
    return isFound ? module : nullptr;
}

HRSRC FindModuleResource(HINSTANCE module, const char* name, unsigned short type) noexcept {
    const HRSRC resource = name != nullptr ? FindResourceA(module, name, MAKEINTRESOURCEA(type)) : nullptr;
    // Resource compilers differ in whether they enter an empty file.
    return ModuleResourceSize(module, resource) != 0 ? resource : nullptr;
}

void* LoadModuleResource(HINSTANCE module, HRSRC resource) noexcept {
    return resource != nullptr ? LoadResource(module, resource) : nullptr;
}

const void* LockModuleResource(void* loadedResource) noexcept {
    return loadedResource != nullptr ? LockResource(loadedResource) : nullptr;
}

std::size_t ModuleResourceSize(HINSTANCE module, HRSRC resource) noexcept {
    return resource != nullptr ? SizeofResource(module, resource) : 0;
}

}  // namespace MLCore::platform
