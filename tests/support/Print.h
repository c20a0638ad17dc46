/// How GoogleTest shows our values: by their fields, so that two that differ also look different. Included by every
/// test.
#pragma once

#include <iosfwd>

namespace MLCore {

class CDATE;
class CDATETIME;
class CVALUE;

void PrintTo(const CDATE& date, std::ostream* out);
void PrintTo(const CDATETIME& moment, std::ostream* out);
void PrintTo(const CVALUE& value, std::ostream* out);

}  // namespace MLCore
