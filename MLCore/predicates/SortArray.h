#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/predicates/SORTRULE.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <span>

namespace MLCore {

/// A new array of the same elements, sorted by the keys of `order` (CSORTDESCRIPTORBUILDER). The first key by which two
/// elements differ decides. Elements that no key tells apart keep their order. The result is not sorted when `order` is null or
/// empty.
///
///     const auto order = CSORTDESCRIPTORBUILDER::Create("+customer;-sales");
///     const auto sorted = SortArray(orders, order, CVALUEOBJECT::ComparisonOption::CaseInsensitive);
///
/// The values of a key compare as value objects do, texts under `option`. Null, and every value of a null element, come
/// first in an ascending order and last in a descending one. A tolerance alone gives no order, so numbers fall into
/// groups, from the least upwards: those within the tolerance of the least one of a group are equal. Numbers further
/// apart are always in order. A NaN comes between null and the numbers.
///
/// Fails with kErrNull (-100) when `array` is null, and with kErrBadCast (121) when an element of `order` is not a
/// CSORTDESCRIPTOR. Fails with kErrValueType (138) when the values of one key are of more than one kind (ValueKind), even if
/// they would not decide, or of none: objects other than value objects, and the type Object. Failures of the keys
/// (kErrUnknownKey, 151) pass through.
///
/// Texts of a class derived from CVALUEOBJECT compare by its CmpString(), which must give the same answer each time.
///
/// Each element is asked once for each key, in the order of `order`. About n log n comparisons follow, and none of them takes
/// memory.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> SortArray(
    CARRAY* array, CARRAY* order,
    CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

/// The same with rules for some of the keys: see SORTRULE. A rule belongs to its key, wherever that stands in `order` and
/// whichever its direction, so that one table of rules serves all orders of a class of elements. The first rule of a key holds.
/// A key without a rule takes the one with the empty key, or else the default. A rule whose key is not in `order` has no effect.
///
/// Under the rules ByTable and Naturally all texts compare by the table, those of derived classes too.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> SortArray(
    CARRAY* array, CARRAY* order, std::span<const SORTRULE> rules,
    CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

}  // namespace MLCore
