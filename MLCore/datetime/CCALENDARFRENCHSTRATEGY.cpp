#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>

#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>

namespace MLCore {

CSHAREOBJECTPTR<CCALENDARFRENCHSTRATEGY> CCALENDARFRENCHSTRATEGY::Create() {
    return AdoptObject(new CCALENDARFRENCHSTRATEGY);
}

CCALENDARFRENCHSTRATEGY::~CCALENDARFRENCHSTRATEGY() = default;

int CCALENDARFRENCHSTRATEGY::IsFerie(const CDATE& date) const { return FrenchHolidays().IsHoliday(date) ? 1 : 0; }

}  // namespace MLCore
