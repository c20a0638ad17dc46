#include <MLCore/platform/CivilTime.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

CIVILTIME CivilFromSystemTime(const SYSTEMTIME& time) noexcept {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

SYSTEMTIME SystemTimeFromCivil(const CIVILTIME& time, int dayOfWeek) noexcept {
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(time.year);
    result.wMonth = static_cast<WORD>(time.month);
    result.wDayOfWeek = static_cast<WORD>(dayOfWeek);
    result.wDay = static_cast<WORD>(time.day);
    result.wHour = static_cast<WORD>(time.hour);
    result.wMinute = static_cast<WORD>(time.minute);
    result.wSecond = static_cast<WORD>(time.second);
    return result;
}

}  // namespace MLCore::platform
