#include <MLCore/streams/CRESOURCESTREAM.h>

#include <MLCore/platform/ModuleResources.h>

namespace MLCore {

CRESOURCESTREAM::CRESOURCESTREAM(HINSTANCE module, const char* name, unsigned short type)
    : CRESOURCESTREAM(CRESOURCEINFO(module, platform::FindModuleResource(module, name, type))) {}

CRESOURCESTREAM::CRESOURCESTREAM(const CRESOURCEINFO& info)
    : CSTREAM(Read),
      CURSORSTREAM(Read, static_cast<unsigned long long>(info.GetSize())),
      mResource(info.GetResource()),
      mData(platform::LockModuleResource(mResource)) {
    FailNull(mResource);
    FailNull(mData);
}

CRESOURCESTREAM::~CRESOURCESTREAM() = default;

long CRESOURCESTREAM::GetValue(void* buffer, long count) {
    FailClosed(*this);
    return mCursor.ReadFrom(mData, buffer, count);
}

void CRESOURCESTREAM::SetSize(unsigned long long) { FailClosed(*this); }

}  // namespace MLCore
