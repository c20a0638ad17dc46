#include <MLCore/streams/CRESOURCEINFO.h>

#include <MLCore/platform/ModuleResources.h>

namespace MLCore {

void* CRESOURCEINFO::GetResource() const { return platform::LoadModuleResource(mModule, mResource); }

long CRESOURCEINFO::GetSize() const { return static_cast<long>(platform::ModuleResourceSize(mModule, mResource)); }

}  // namespace MLCore
