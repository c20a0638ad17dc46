/// Reading the file of order lines.
#pragma once

#include <MLCore/values/CARRAY.h>

#include <functional>
#include <string>

#include "Rejects.h"

namespace orders {

/// Called after every line with the share of the file that has been read.
using PROGRESS = std::function<void(int percent)>;

/// The CORDERs of a file, in its order. A line that is not an order, was shipped before it was ordered, or contradicts
/// an earlier line of its order goes to `rejects`. Throws a std::runtime_error when a file cannot be read or written,
/// or a column is missing.
[[nodiscard]] MLCore::CSHAREOBJECTPTR<MLCore::CARRAY> ReadOrders(const std::string& path, REJECTS& rejects,
                                                                 const PROGRESS& progress);

}  // namespace orders
