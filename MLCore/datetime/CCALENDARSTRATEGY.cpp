#include <MLCore/datetime/CCALENDARSTRATEGY.h>

#include <MLCore/datetime/detail/BusinessDays.h>

#include <cstddef>

namespace MLCore {

namespace {

// Where the flag of a weekday stands; weekdays before 1904 are negative.
std::size_t IndexOf(CDATE::eDay day) noexcept { return static_cast<std::size_t>(day < 0 ? day + 7 : day); }

bool IsWeekday(CDATE::eDay day) noexcept { return day > -7 && day < 7; }

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
    const int a = year % 19;
    const int c = year / 100;
    const int u = year % 100;
    const int s = c / 4;
    const int e = c - 4 * s;
    const int g = (c - (c + 8) / 25 + 1) / 3;
    const int h = (19 * a + c - s - g + 15) % 30;
    const int i = u / 4;
    const int k = u - 4 * i;
    const int l = (32 + 2 * e + 2 * i - h - k) % 7;
    const int m = (a + 11 * h + 22 * l) / 451;
    const int n = h + l - 7 * m + 114;
    return {static_cast<std::int16_t>(n % 31 + 1), static_cast<std::int16_t>(n / 31), year};
}

}  // namespace MLCore
