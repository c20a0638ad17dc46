#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

namespace MLCore {

/// A resource that was found in a module (MLCore/platform/ModuleResources.h tells how they get there). Holds two
/// handles; nothing needs to be released.
class MLCORE_API CRESOURCEINFO {
public:
    CRESOURCEINFO(HINSTANCE module, HRSRC resource) noexcept : mModule(module), mResource(resource) {}
    CRESOURCEINFO(const CRESOURCEINFO&) noexcept = default;
    CRESOURCEINFO(CRESOURCEINFO&&) noexcept = default;
    CRESOURCEINFO& operator=(const CRESOURCEINFO&) noexcept = default;
    CRESOURCEINFO& operator=(CRESOURCEINFO&&) noexcept = default;

    /// The loaded resource, to be locked; null when there is none.
    [[nodiscard]] void* GetResource() const;
    /// In bytes; 0 when there is none.
    [[nodiscard]] long GetSize() const;

private:
    HINSTANCE mModule;
    HRSRC mResource;
};

}  // namespace MLCore
