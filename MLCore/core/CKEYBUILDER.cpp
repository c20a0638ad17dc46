#include <MLCore/core/CKEYBUILDER.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/KEYSTEPS.h>

#include <cstdint>
#include <limits>

namespace MLCore {

void CKEYBUILDER::AddKey(const std::string& name) {
    if (!KEYSTEPS::IsName(name)) {
        FailOSErr(kErrUnknownKey);
    }
    // The name may be a part of the path.
    mPath = mPath.empty() ? name : mPath + '.' + name;
}

void CKEYBUILDER::AddIndex(long index) {
    if (index < 0 || index > std::numeric_limits<std::int32_t>::max()) {
        FailOSErr(kErrUnknownKey);
    }
    mPath.append("[").append(std::to_string(index)).append("]");
}

}  // namespace MLCore
