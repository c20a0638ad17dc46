#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>

#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>

namespace MLCore {

CSHAREOBJECTPTR<CCALENDARPORTOSTRATEGY> CCALENDARPORTOSTRATEGY::Create() {
    return AdoptObject(new CCALENDARPORTOSTRATEGY);
}

CCALENDARPORTOSTRATEGY::~CCALENDARPORTOSTRATEGY() = default;

int CCALENDARPORTOSTRATEGY::IsFerie(const CDATE& date) const { return PortugueseHolidays().IsHoliday(date) ? 1 : 0; }

}  // namespace MLCore
