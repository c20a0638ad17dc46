#include <workshop/Workshop.h>

#include <MLCore/core/FailureChecks.h>

namespace workshop {

const MLCore::CCLASSTYPEINFO& CREPAIRED::ClassInfoStatic() {
    static const MLCore::CLASSDESCRIPTION<CREPAIRED, void> gClassInfo("CREPAIRED");
    return gClassInfo;
}

MLCORE_REGISTER_CLASS(CPART)

std::array<const void*, 7> AddressesInWorkshop() { return depot::SharedAddresses(); }

void FailInWorkshop(short code) { MLCore::FailOSErr(code); }

}  // namespace workshop
