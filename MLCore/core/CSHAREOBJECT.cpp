#include <MLCore/core/CSHAREOBJECT.h>

namespace MLCore {

CSHAREOBJECT::~CSHAREOBJECT() = default;

unsigned long CSHAREOBJECT::AddRef() { return static_cast<unsigned long>(mUseCount.fetch_add(1) + 1); }

unsigned long CSHAREOBJECT::Release() {
    // One subtraction decides and answers: reading the count apart from it could answer for another thread's release.
    const std::int32_t before = mUseCount.fetch_sub(1);
    if (before == 1) {
        NoMoreRef();
    }
    return static_cast<unsigned long>(before);
}

long CSHAREOBJECT::GetUseCount() const { return mUseCount.load(); }

void CSHAREOBJECT::NoMoreRef() { delete this; }

}  // namespace MLCore
