/// Reading the file of order lines.
#pragma once

#include <MLCore/datetime/CDATE.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Amount.h"

namespace orders {

/// An order: all its lines together. Texts are UTF-8.
struct ORDER {
    std::string id;
    std::string customer;
    MLCore::CDATE ordered;
    MLCore::CDATE shipped;
    std::uint64_t lines = 0;
    AMOUNT sales;
    AMOUNT profit;
};

/// Told from time to time how much of the file has been read, in percent.
using PROGRESS = std::function<void(int percent)>;

/// The orders in the order of their first lines. The file is in code page 1252; its first line names the columns, of
/// which order, orderDate, shipDate, customer, sales and profit are read, in whatever order they stand. An empty file
/// holds no orders.
///
/// Throws a DATAERROR for a line that is broken or contradicts an earlier one of its order, and a std::runtime_error when
/// the file cannot be read.
[[nodiscard]] std::vector<ORDER> ReadOrders(const std::string& path, const PROGRESS& progress);

}  // namespace orders
