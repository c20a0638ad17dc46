/// The report on orders.
#pragma once

#include <ostream>
#include <vector>

#include "Options.h"
#include "OrderFile.h"

namespace orders {

/// Writes the report in UTF-8. The orders are those of the period asked for.
void WriteReport(std::ostream& out, const std::vector<ORDER>& orders, const OPTIONS& options);

}  // namespace orders
