#include <MLCore/platform/OleDate.h>

#include <MLCore/platform/WinTypes.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace MLCore::platform {

namespace {

/// A DATE is valid strictly between these two. The system checks only the year that it is given, not what rolling over
/// makes of it.
constexpr double kBeforeFirst = -657435.0;
constexpr double kAfterLast = 2958466.0;

/// The system reads its unsigned fields as signed 16-bit numbers.
constexpr bool FitsField(int value) noexcept {
    return value >= std::numeric_limits<std::int16_t>::min() && value <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

bool OleDateFromCivil(const CIVILTIME& time, double& date) noexcept {
    if (time.year < 0 || time.year > 9999 || !FitsField(time.month) || !FitsField(time.day) || !FitsField(time.hour) ||
        !FitsField(time.minute) || !FitsField(time.second)) {
        return false;
    }
    UDATE fields{};
    fields.st = SystemTimeFromCivil(time, 0);
    double result = 0;
    if (FAILED(VarDateFromUdate(&fields, 0, &result)) || result <= kBeforeFirst || result >= kAfterLast) {
        return false;
    }
    date = result;
    return true;
}

bool CivilFromOleDate(double date, CIVILTIME& time) noexcept {
    UDATE fields{};
    if (!std::isfinite(date) || FAILED(VarUdateFromDate(date, 0, &fields)) || fields.st.wYear > 9999) {
        return false;
    }
    time = CivilFromSystemTime(fields.st);
    return true;
}

}  // namespace MLCore::platform
