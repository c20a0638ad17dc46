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

/// The elements of a collection at the time of the call, in its order; null elements of an array are included. Code
/// that calls functions of the elements uses this copy, because an element may change its collection or release it.
[[nodiscard]] MLCORE_API Elements ElementsOf(const CARRAY& array);
[[nodiscard]] MLCORE_API Elements ElementsOf(const CSET& set);

}  // namespace MLCore
