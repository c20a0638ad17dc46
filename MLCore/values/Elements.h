#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>

#include <vector>

namespace MLCore {

class CARRAY;
class CSET;

/// Objects, each held by one reference.
using Elements = std::vector<CSHAREOBJECTPTR<COBJECT>>;

/// The elements of a collection at the time of the call, in its order: for code that calls into the elements, which may
/// change their collection or release it. Null elements of an array are included.
[[nodiscard]] MLCORE_API Elements ElementsOf(const CARRAY& array);
[[nodiscard]] MLCORE_API Elements ElementsOf(const CSET& set);

}  // namespace MLCore
