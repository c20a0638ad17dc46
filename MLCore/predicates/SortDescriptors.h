/// Sort orders, that is arrays of CSORTDESCRIPTOR, compared and turned round.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CARRAY.h>

namespace MLCore {

/// Not 0 when both have equal descriptors in the same order, or both are null. An element that is no descriptor equals
/// nothing, and null is not an empty order.
[[nodiscard]] MLCORE_API int CmpSortDescriptors(CARRAY* a, CARRAY* b);

/// A new order of the same keys with every direction turned round; null for null. Fails with 121 when an element is no
/// descriptor.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> ReverseSortDescriptors(CARRAY* order);

}  // namespace MLCore
