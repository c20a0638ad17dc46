#include <MLCore/core/CKEYBUILDER.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/detail/KEYSTEPS.h>

#include <cstdint>
#include <limits>

namespace MLCore {

void CKEYBUILDER::AddKey(const std::string& name) {
    Require(KEYSTEPS::IsName(name), kErrUnknownKey, Quoted(name),
            " cannot be a name in a key path: a name is not empty and holds no '.', '[' or ']'");
    // The name may be a part of the path.
    mPath = mPath.empty() ? name : mPath + '.' + name;
}

void CKEYBUILDER::AddIndex(long index) {
    Require(index >= 0 && index <= std::numeric_limits<std::int32_t>::max(), kErrUnknownKey, index,
            " cannot be an index in a key path, wanted 0 to 2147483647");
    mPath.append("[").append(std::to_string(index)).append("]");
}

}  // namespace MLCore
