#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

#include <cstddef>

namespace MLCore::platform {

/// Files that are compiled into a program or a shared library and read from memory: tables, texts, pictures.
///
/// A resource is found in a module by a name and a numeric type. The CMake function `mlcore_add_resources` puts files
/// into a module: as a compiled resource script on Windows, as data with a RESOURCEREGISTRATION on Linux.
///
/// A name is a text of letters, digits, `_`, `-` and `.`, compared without regard to ASCII case, or a number from 1 to
/// 65535, given as `"#123"` or as a pointer with that value. The type is a number from 1 to 65535; 10 is plain data. An
/// empty file is not found, and words of Windows's resource scripts (MENU, VALUE) must not be names there.
///
/// A module handle is the result of loading the module: on Windows the `HMODULE`, on Linux the result of `dlopen`. Null
/// means the program itself. All functions may be called from any thread. Nothing needs to be released: the bytes live
/// as long as the module is loaded.

/// The module that contains the function or the static object at `address`; null when no module does.
[[nodiscard]] MLCORE_API HINSTANCE ModuleOf(const void* address) noexcept;

/// Finds a resource; null when the module has no resource of this name and type, or `name` is null.
[[nodiscard]] MLCORE_API HRSRC FindModuleResource(HINSTANCE module, const char* name, unsigned short type) noexcept;

/// Loads a resource: a handle for LockModuleResource; null for a null resource. Here and below the resource must be one
/// of this module.
[[nodiscard]] MLCORE_API void* LoadModuleResource(HINSTANCE module, HRSRC resource) noexcept;

/// The first byte of a loaded resource; null for null. The bytes are read-only.
[[nodiscard]] MLCORE_API const void* LockModuleResource(void* loadedResource) noexcept;

/// The size of a resource in bytes; 0 for a null resource.
[[nodiscard]] MLCORE_API std::size_t ModuleResourceSize(HINSTANCE module, HRSRC resource) noexcept;

#if !defined(_WIN32)

/// A resource of the module that defines this object. `mlcore_add_resources` defines such static objects. The resource
/// can be found as long as the object lives.
class MLCORE_API RESOURCEREGISTRATION {
public:
    /// \param name  `NAME` or `"#123"`. The name and the `size` bytes at `data` must lie in the module and outlive the
    /// object.
    RESOURCEREGISTRATION(const char* name, unsigned short type, const void* data, std::size_t size) noexcept;
    ~RESOURCEREGISTRATION();
    RESOURCEREGISTRATION(const RESOURCEREGISTRATION&) = delete;
    RESOURCEREGISTRATION& operator=(const RESOURCEREGISTRATION&) = delete;

private:
    friend HRSRC FindModuleResource(HINSTANCE module, const char* name, unsigned short type) noexcept;
    friend void* LoadModuleResource(HINSTANCE module, HRSRC resource) noexcept;
    friend std::size_t ModuleResourceSize(HINSTANCE module, HRSRC resource) noexcept;

    static const RESOURCEREGISTRATION* FromHandle(HINSTANCE module, HRSRC resource) noexcept;

    HINSTANCE mModule;
    const char* mName;
    const void* mData;
    std::size_t mSize;
    RESOURCEREGISTRATION* mNext;
    unsigned short mType;
};

#endif

}  // namespace MLCore::platform
