#include <support/Print.h>

#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/values/CVALUE.h>

#include <ostream>

namespace MLCore {

void PrintTo(const CDATE& date, std::ostream* out) {
    *out << "CDATE(" << date.GetDay() << ", " << date.GetMonth() << ", " << date.GetYear() << ')';
}

void PrintTo(const CDATETIME& moment, std::ostream* out) {
    PrintTo(moment.GetDate(), out);
    *out << ' ' << moment.GetTime();
}

void PrintTo(const CVALUE& value, std::ostream* out) { *out << value.GetType() << ' ' << value; }

}  // namespace MLCore
