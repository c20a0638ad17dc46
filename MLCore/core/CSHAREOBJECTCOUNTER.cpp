#include <MLCore/core/CSHAREOBJECTCOUNTER.h>

#include <utility>

namespace MLCore {

CSHAREOBJECTCOUNTER::CSHAREOBJECTCOUNTER(CSHAREOBJECT* object, int adopt) : mObject(object) {
    if (mObject != nullptr && adopt == 0) {
        mObject->AddRef();
    }
}

CSHAREOBJECTCOUNTER::~CSHAREOBJECTCOUNTER() {
    if (mObject != nullptr) {
        mObject->Release();
    }
}

void CSHAREOBJECTCOUNTER::Attach(CSHAREOBJECT* object) {
    if (object == mObject) {
        return;
    }
    if (object != nullptr) {
        object->AddRef();
    }
    // Released last: the old object may own the new one.
    CSHAREOBJECT* const old = std::exchange(mObject, object);
    if (old != nullptr) {
        old->Release();
    }
}

}  // namespace MLCore
