#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/CVALUEOBJECT.h>

namespace MLCore {

/// A new array of the same elements, sorted by the keys of `order` (CSORTDESCRIPTORBUILDER); the first key that tells two
/// elements apart decides. Elements that no key tells apart keep their order. Unsorted when `order` is null or empty.
///
///     SortArray(orders, CSORTDESCRIPTORBUILDER::Create("+customer;-sales"), CVALUEOBJECT::ComparisonOption::CaseInsensitive);
///
/// The values of a key compare as value objects do, texts under `option`. Null, and all values of a null element, come
/// first in an ascending order and last in a descending one. As a tolerance alone gives no order, numbers fall into
/// groups, from the least upwards: those within the tolerance of the least one of a group are equal. Numbers further
/// apart are always in order. A NaN comes between null and the numbers.
///
/// Fails with -100 when `array` is null, and with 121 when an element of `order` is no descriptor. Fails with 138 when the
/// values of one key are of more than one kind (numbers, dates with date-times, texts, GUIDs), whether or not they would
/// decide, or of none: objects other than value objects, and the type Object. Failures of the keys (151) pass through.
///
/// Texts that a class derived from CVALUEOBJECT compares (CmpString) must compare the same each time they are asked.
///
/// Each element is asked once for each key, in the order of `order`; then about n log n comparisons, none of which takes memory.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> SortArray(
    CARRAY* array, CARRAY* order,
    CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

}  // namespace MLCore
