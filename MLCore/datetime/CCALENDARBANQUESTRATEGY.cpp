#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>

#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>

namespace MLCore {

CSHAREOBJECTPTR<CCALENDARBANQUESTRATEGY> CCALENDARBANQUESTRATEGY::Create() {
    return AdoptObject(new CCALENDARBANQUESTRATEGY);
}

CCALENDARBANQUESTRATEGY::~CCALENDARBANQUESTRATEGY() = default;

int CCALENDARBANQUESTRATEGY::IsFerie(const CDATE& date) const { return FrenchBankHolidays().IsHoliday(date) ? 1 : 0; }

}  // namespace MLCore
