#include <depot/Depot.h>

#include <MLCore/core/FrameworkException.h>

template class MLCore::CSINGLETON<depot::CSTOCK, MLCore::autorelease>;

namespace depot {

using MLCore::CCLASSTYPEINFO;
using MLCore::CLASSDESCRIPTION;

const CCLASSTYPEINFO& CLABELLED::ClassInfoStatic() {
    static const CLASSDESCRIPTION<CLABELLED, void> gClassInfo("CLABELLED");
    return gClassInfo;
}

const CCLASSTYPEINFO& CPRICED::ClassInfoStatic() {
    static const CLASSDESCRIPTION<CPRICED, void, CLABELLED> gClassInfo("CPRICED");
    return gClassInfo;
}

MLCORE_REGISTER_CLASS(CITEM)

std::array<const void*, 7> AddressesInDepot() { return SharedAddresses(); }

void ThrowInDepot(short msg) { throw MLCore::FrameworkException(7, msg); }

short CatchInDepot(void (*action)()) {
    try {
        action();
    } catch (const MLCore::FrameworkException& failure) {
        return failure.GetMsg();
    }
    return 0;
}

}  // namespace depot
