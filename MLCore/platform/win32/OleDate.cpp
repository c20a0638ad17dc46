#include <MLCore/platform/OleDate.h>

#include <MLCore/platform/WinTypes.h>
#include <MLCore/platform/common/OleDateRange.h>

#include <cmath>

namespace MLCore::platform {

bool OleDateFromCivil(const CIVILTIME& time, double& date) noexcept {
    if (!AreOleFields(time)) {
        return false;
    }
    UDATE fields{};
    fields.st = SystemTimeFromCivil(time, 0);
    double result = 0;
    // The system checks only the year that it is given, not what rolling over makes of it.
    if (FAILED(VarDateFromUdate(&fields, 0, &result)) || !IsOleDate(result)) {
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
