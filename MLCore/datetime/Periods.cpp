#include <MLCore/datetime/Periods.h>

#include <MLCore/core/EnumTable.h>
#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/datetime/detail/BusinessDays.h>

namespace MLCore {

namespace {

CDATE FirstOf(int month, int year) noexcept {
    return {1, static_cast<std::int16_t>(month), static_cast<std::int16_t>(year)};
}

CDATETIME Start(const CDATE& date) noexcept { return {date, CTIME::Null()}; }

CDATETIME End(const CDATE& date) noexcept { return {date, CTIME::Max()}; }

struct PERIOD {
    CDATE::eTypeEchelonnement type;
    CDATE (*first)(const CDATE&, CCALENDARSTRATEGY*);
    CDATE (*last)(const CDATE&, CCALENDARSTRATEGY*);
};

CDATE SameDate(const CDATE& date, CCALENDARSTRATEGY*) { return date; }

// Gives a function of the date alone the form of those that ask a calendar.
template <CDATE (*Function)(const CDATE&)>
CDATE WithoutCalendar(const CDATE& date, CCALENDARSTRATEGY*) {
    return Function(date);
}

constexpr PERIOD kPeriods[] = {
    {CDATE::EchelonDay, SameDate, SameDate},
    {CDATE::EchelonWeek, FirstDateWeek, LastDateWeek},
    {CDATE::EchelonMonth, WithoutCalendar<FirstDateMonth>, WithoutCalendar<LastDateMonth>},
    {CDATE::EchelonBimestre, WithoutCalendar<FirstDateBimestre>, WithoutCalendar<LastDateBimestre>},
    {CDATE::EchelonTrimestre, WithoutCalendar<FirstDateTrimestre>, WithoutCalendar<LastDateTrimestre>},
    {CDATE::EchelonSemestre, WithoutCalendar<FirstDateSemestre>, WithoutCalendar<LastDateSemestre>},
    {CDATE::EchelonYear, WithoutCalendar<FirstDateYear>, WithoutCalendar<LastDateYear>},
};
static_assert(IsIndexedBy(kPeriods, &PERIOD::type, CDATE::kEchelonCount));

const PERIOD* FindPeriod(const CDATE& date, CDATE::eTypeEchelonnement type) noexcept {
    return date.IsDate() != 0 && type >= 0 && type < CDATE::kEchelonCount ? &kPeriods[type] : nullptr;
}

}  // namespace

CDATE FirstDateWeek(const CDATE& date, CCALENDARSTRATEGY* strategy) {
    const int firstDayOfWeek = CCALENDARMANAGER::Resolve(strategy).GetFirstDayOfWeek();
    const std::int32_t serial = date.ComputeDaysFrom1904();
    const std::int32_t start = businessdays::WeekStart(serial, firstDayOfWeek);
    // Fields that are not a valid date stay as they are on the week's first day.
    return start == serial ? date : date - (serial - start);
}

CDATE LastDateWeek(const CDATE& date, CCALENDARSTRATEGY* strategy) { return FirstDateWeek(date, strategy) + 6; }

CDATE FirstDateMonth(const CDATE& date) { return FirstOf(date.GetMonth(), date.GetYear()); }

CDATE LastDateMonth(const CDATE& date) {
    if (const int days = CDATE::DaysInMonth(date.GetMonth(), date.GetYear()); days != 0) {
        return {static_cast<std::int16_t>(days), date.GetMonth(), date.GetYear()};
    }
    // A month outside 1..12: the day before the first of what one month more makes of it.
    CDATE next = AddMonths(date, 1);
    next.SetDay(1);
    return next - 1;
}

CDATE FirstDateBimestre(const CDATE& date) { return FirstOf(2 * date.GetBimestreNumber() - 1, date.GetYear()); }

CDATE LastDateBimestre(const CDATE& date) {
    return LastDateMonth(FirstOf(2 * date.GetBimestreNumber(), date.GetYear()));
}

CDATE FirstDateTrimestre(const CDATE& date) { return FirstOf(3 * (date.GetTrimestreNumber() - 1) + 1, date.GetYear()); }

CDATE LastDateTrimestre(const CDATE& date) {
    return LastDateMonth(FirstOf(3 * date.GetTrimestreNumber(), date.GetYear()));
}

CDATE FirstDateSemestre(const CDATE& date) { return FirstOf(date.GetSemestreNumber() == 1 ? 1 : 7, date.GetYear()); }

CDATE LastDateSemestre(const CDATE& date) {
    return date.GetSemestreNumber() == 1 ? CDATE(30, 6, date.GetYear()) : CDATE(31, 12, date.GetYear());
}

CDATE FirstDateYear(const CDATE& date) { return FirstOf(1, date.GetYear()); }

CDATE LastDateYear(const CDATE& date) { return {31, 12, date.GetYear()}; }

CDATE FirstDateEchelonnement(const CDATE& date, CDATE::eTypeEchelonnement type, CCALENDARSTRATEGY* strategy) {
    const PERIOD* const period = FindPeriod(date, type);
    return period != nullptr ? period->first(date, strategy) : CDATE::Null();
}

CDATE LastDateEchelonnement(const CDATE& date, CDATE::eTypeEchelonnement type, CCALENDARSTRATEGY* strategy) {
    const PERIOD* const period = FindPeriod(date, type);
    return period != nullptr ? period->last(date, strategy) : CDATE::Null();
}

CDATETIME FirstDateTimeWeek(const CDATETIME& moment, CCALENDARSTRATEGY* strategy) {
    return Start(FirstDateWeek(moment.GetDate(), strategy));
}

CDATETIME LastDateTimeWeek(const CDATETIME& moment, CCALENDARSTRATEGY* strategy) {
    return End(LastDateWeek(moment.GetDate(), strategy));
}

CDATETIME FirstDateTimeMonth(const CDATETIME& moment) { return Start(FirstDateMonth(moment.GetDate())); }

CDATETIME LastDateTimeMonth(const CDATETIME& moment) { return End(LastDateMonth(moment.GetDate())); }

CDATETIME FirstDateTimeBimestre(const CDATETIME& moment) { return Start(FirstDateBimestre(moment.GetDate())); }

CDATETIME LastDateTimeBimestre(const CDATETIME& moment) { return End(LastDateBimestre(moment.GetDate())); }

CDATETIME FirstDateTimeTrimestre(const CDATETIME& moment) { return Start(FirstDateTrimestre(moment.GetDate())); }

CDATETIME LastDateTimeTrimestre(const CDATETIME& moment) { return End(LastDateTrimestre(moment.GetDate())); }

CDATETIME FirstDateTimeSemestre(const CDATETIME& moment) { return Start(FirstDateSemestre(moment.GetDate())); }

CDATETIME LastDateTimeSemestre(const CDATETIME& moment) { return End(LastDateSemestre(moment.GetDate())); }

CDATETIME FirstDateTimeYear(const CDATETIME& moment) { return Start(FirstDateYear(moment.GetDate())); }

CDATETIME LastDateTimeYear(const CDATETIME& moment) { return End(LastDateYear(moment.GetDate())); }

}  // namespace MLCore
