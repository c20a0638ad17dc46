/// \file
/// Comparing and reversing sort orders, which are arrays of CSORTDESCRIPTOR.
#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CARRAY.h>

namespace MLCore {

/// Not 0 when both have equal descriptors in the same order, and when both are null. An element that is not a
/// CSORTDESCRIPTOR equals no other, and null does not equal an empty order.
[[nodiscard]] MLCORE_API int CmpSortDescriptors(CARRAY* a, CARRAY* b);

/// A new order of the same keys with every direction reversed; null for null. Fails with kErrBadCast (121) when an
/// element is not a CSORTDESCRIPTOR.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> ReverseSortDescriptors(CARRAY* order);

}  // namespace MLCore
