/// The report on an array of CSHIPMENTs, those of the period asked for.
#pragma once

#include <MLCore/values/CARRAY.h>

#include <ostream>
#include <string>

#include "Options.h"

namespace orders {

/// Writes the report for people, in UTF-8.
void WriteReport(std::ostream& out, const MLCore::CARRAY& shipments, const OPTIONS& options);

/// Writes the shipments to a file, and reads it again to see that nothing was lost. Throws a std::runtime_error.
void WriteReportFile(const std::string& path, const MLCore::CARRAY& shipments);

}  // namespace orders
