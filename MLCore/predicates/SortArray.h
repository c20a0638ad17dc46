#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/platform/Export.h>
#include <MLCore/predicates/SORTRULE.h>
#include <MLCore/values/CARRAY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <span>

namespace MLCore {

/// A new array of the same elements, sorted by the keys of `order` (CSORTDESCRIPTORBUILDER). The first key by which two
/// elements differ decides. Elements that are equal by all keys keep their order. The result is not sorted when `order`
/// is null or empty.
///
///     const auto order = CSORTDESCRIPTORBUILDER::Create("+customer;-sales");
///     const auto sorted = SortArray(orders, order, CVALUEOBJECT::ComparisonOption::CaseInsensitive);
///
/// The values of a key compare as value objects do, texts under `option`. Null, and every value of a null element, come
/// first in an ascending order and last in a descending one. A tolerance alone gives no order, so numbers form groups,
/// from the least upwards: the numbers within the tolerance of the least one of a group are equal. Two numbers that
/// differ by more than the tolerance are always in order. A NaN comes between null and the numbers.
///
/// Fails with kErrNull (-100) when `array` is null, and with kErrBadCast (121) when an element of `order` is not a
/// CSORTDESCRIPTOR. Fails with kErrValueType (138) when the values of one key are of more than one kind (ValueKind),
/// even if they would not decide, or of none: objects other than value objects, and the type Object. Failures of the
/// keys pass through, such as kErrUnknownKey (151).
///
/// Texts of a class derived from CVALUEOBJECT compare by its CmpString(), which must return the same result each time.
///
/// Each element is asked once for each key, in the order of `order`. About n log n comparisons follow, and none of them
/// takes memory.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> SortArray(
    CARRAY* array, CARRAY* order,
    CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

/// The same with rules for some of the keys: see SORTRULE. A rule applies to its key at any place in `order` and in
/// both directions, so one table of rules is enough for all orders of a class. Of several rules for a key the first one
/// counts. A key without a rule takes the rule with the empty key, or else the default. A rule whose key is not in
/// `order` has no effect.
///
/// Under the rules ByTable and Naturally all texts compare by the table, those of derived classes too.
[[nodiscard]] MLCORE_API CSHAREOBJECTPTR<CARRAY> SortArray(
    CARRAY* array, CARRAY* order, std::span<const SORTRULE> rules,
    CVALUEOBJECT::ComparisonOption option = CVALUEOBJECT::ComparisonOption::CaseSensitive);

}  // namespace MLCore
