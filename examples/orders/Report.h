/// Reports on arrays of CSHIPMENTs.
#pragma once

#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CARRAY.h>

#include <ostream>
#include <string>

#include "Options.h"

namespace orders {

/// Writes the report on the shipments of the chosen period, for people, in UTF-8.
void WriteReport(std::ostream& out, MLCore::CARRAY& shipments, const OPTIONS& options);

/// Writes the shipments that were selected, how, and their totals.
void WriteSelection(std::ostream& out, const MLCore::CARRAY& shipments, const MLCore::CARRAY& selected,
                    const MLCore::CPREDICATE& filter, const OPTIONS& options);

/// Writes the shipments to a file, and reads it again to see that nothing was lost. Throws a std::runtime_error.
void WriteReportFile(const std::string& path, const MLCore::CARRAY& shipments);

}  // namespace orders
