#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

namespace MLCore {

/// A resource that was found in a module. MLCore/platform/ModuleResources.h says how files become resources. The object
/// holds two handles, and nothing needs to be released.
class MLCORE_API CRESOURCEINFO {
public:
    CRESOURCEINFO(HINSTANCE module, HRSRC resource) noexcept : mModule(module), mResource(resource) {}
    CRESOURCEINFO(const CRESOURCEINFO&) noexcept = default;
    CRESOURCEINFO(CRESOURCEINFO&&) noexcept = default;
    CRESOURCEINFO& operator=(const CRESOURCEINFO&) noexcept = default;
    CRESOURCEINFO& operator=(CRESOURCEINFO&&) noexcept = default;

    /// The loaded resource, which platform::LockModuleResource() locks; null for a null resource.
    [[nodiscard]] void* GetResource() const;
    /// The size in bytes; 0 for a null resource.
    [[nodiscard]] long GetSize() const;

private:
    HINSTANCE mModule;
    HRSRC mResource;
};

}  // namespace MLCore
