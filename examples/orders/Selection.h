/// Selecting and sorting CSHIPMENTs: filters are predicates, made of the options or read from files.
#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CARRAY.h>

#include <string>

#include "Options.h"

namespace orders {

/// All conditions of the options, and that of the filter file. Throws a std::runtime_error when that file cannot be
/// read, is not a filter, or uses a key that orders lack.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CPREDICATE> MakeFilter(const OPTIONS& options);

/// Writes a filter file. Throws a std::runtime_error.
void SaveFilter(const std::string& path, const MLCore::CPREDICATE& filter);

/// The shipments that took more business days, and those that were ordered from one date to another.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CPREDICATE> IsLate(int days);
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CPREDICATE> IsOrdered(const MLCore::CDATE& from, const MLCore::CDATE& to);

/// The shipments that meet a filter (null: all), sorted by keys such as "+customer;-sales", whatever the case of texts.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CARRAY> Select(MLCore::CARRAY& shipments, MLCore::CPREDICATE* filter,
                                                             const std::string& keys);

/// The fault of a key to filter or to sort by, or "".
[[nodiscard]] std::string FaultOfKey(const std::string& key);

}  // namespace orders
