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
/// empty file is not found, and words of Windows's resource scripts (MENU, VALUE) are no names there.
///
/// A module handle is what loading the module gives: on Windows the `HMODULE`, on Linux what `dlopen` returns. Null is
/// the program itself. All functions may be called from any thread. Nothing needs to be released: the bytes live as
/// long as the module is loaded.

/// The module that holds the function or the static object at `address`; null when there is none.
[[nodiscard]] MLCORE_API HINSTANCE ModuleOf(const void* address) noexcept;

/// Finds a resource; null when the module has none of that name and type, or `name` is null.
[[nodiscard]] MLCORE_API HRSRC FindModuleResource(HINSTANCE module, const char* name, unsigned short type) noexcept;

/// Loads a resource: a handle for LockModuleResource; null for a null resource. The resource is one of
/// this module's, here as below.
[[nodiscard]] MLCORE_API void* LoadModuleResource(HINSTANCE module, HRSRC resource) noexcept;

/// The first byte of a loaded resource; null for null. The bytes are read-only.
[[nodiscard]] MLCORE_API const void* LockModuleResource(void* loadedResource) noexcept;

/// The size of a resource in bytes; 0 for a null resource.
[[nodiscard]] MLCORE_API std::size_t ModuleResourceSize(HINSTANCE module, HRSRC resource) noexcept;

#if !defined(_WIN32)

/// A resource of the module that defines this object. For static objects, as `mlcore_add_resources` makes them: the
/// resource can be found as long as the object lives.
class MLCORE_API RESOURCEREGISTRATION {
public:
    /// \param name  `NAME` or `"#123"`; it and the `size` bytes at `data`, which lie in the module, outlive the object.
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
