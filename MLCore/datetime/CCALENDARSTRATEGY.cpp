#include <MLCore/datetime/CCALENDARSTRATEGY.h>

#include <MLCore/datetime/Easter.h>
#include <MLCore/datetime/detail/BusinessDays.h>

#include <cstddef>

namespace MLCore {

namespace {

// Where the flag of a weekday stands; weekdays before 1904 are negative.
std::size_t IndexOf(CDATE::eDay day) noexcept {
    return static_cast<std::size_t>(day < 0 ? day + CDATE::kDayCount : static_cast<int>(day));
}

bool IsWeekday(CDATE::eDay day) noexcept { return day > -CDATE::kDayCount && day < CDATE::kDayCount; }

}  // namespace

CCALENDARSTRATEGY::~CCALENDARSTRATEGY() = default;

int CCALENDARSTRATEGY::IsOuvre(CDATE::eDay day) const { return IsWeekday(day) ? mOuvre[IndexOf(day)] : 0; }

void CCALENDARSTRATEGY::SetOuvre(CDATE::eDay day, int isOuvre) {
    if (IsWeekday(day)) {
        mOuvre[IndexOf(day)] = isOuvre != 0 ? 1 : 0;
    }
}

CCALENDARSTRATEGY::eKindOfFirstWeekOfYear CCALENDARSTRATEGY::GetFirstWeek() { return mFirstWeek; }

void CCALENDARSTRATEGY::SetFirstWeek(eKindOfFirstWeekOfYear kind) { mFirstWeek = kind; }

CDATE::eDay CCALENDARSTRATEGY::GetFirstDayOfWeek() { return mFirstDayOfWeek; }

void CCALENDARSTRATEGY::SetFirstDayOfWeek(CDATE::eDay day) { mFirstDayOfWeek = day; }

int CCALENDARSTRATEGY::IsTravaille(const CDATE& date) const { return businessdays::IsOuvre(*this, date) ? 1 : 0; }

CDATE CCALENDARSTRATEGY::GetPaquesDate(short year) noexcept {
    const EASTERSUNDAY easter = EasterOf(year);
    return {static_cast<std::int16_t>(easter.day), static_cast<std::int16_t>(easter.month), year};
}

}  // namespace MLCore
