#include <MLCore/datetime/detail/OwnCalendars.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/datetime/CCALENDARBANQUEPORTOSTRATEGY.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>

#include <span>
#include <tuple>

namespace MLCore {

namespace {

using FIXEDDAY = HOLIDAYCALENDAR::FIXEDDAY;

constexpr FIXEDDAY kFrenchDays[] = {{1, 1}, {1, 5}, {8, 5}, {14, 7}, {15, 8}, {1, 11}, {11, 11}, {25, 12}};
constexpr int kFrenchOffsets[] = {+1, +39, +50};  // Easter Monday, Ascension Thursday, Whit Monday

constexpr FIXEDDAY kFrenchBankDays[] = {{1, 1},  {1, 5},   {8, 5},   {14, 7}, {15, 8},
                                        {1, 11}, {11, 11}, {25, 12}, {26, 12}};
constexpr int kFrenchBankOffsets[] = {-2, +1, +39, +50};  // Good Friday and the French ones

constexpr FIXEDDAY kPortugueseDays[] = {{1, 1},  {25, 4}, {1, 5},  {10, 6}, {15, 8},
                                        {5, 10}, {1, 11}, {1, 12}, {8, 12}, {25, 12}};
constexpr int kPortugueseOffsets[] = {-47, -2, +1, +60};  // Shrove Tuesday, Good Friday, Easter Monday, Corpus Christi

// The holidays of a class of calendars: fixed days, and days counted from Easter Sunday.
template <class Calendar>
struct ROW {
    std::span<const FIXEDDAY> fixedDays;
    std::span<const int> easterOffsets;
};

// A new calendar is a row here, its members below and its class in a header.
constexpr std::tuple kOwnCalendars = {
    ROW<CCALENDARFRENCHSTRATEGY>{kFrenchDays, kFrenchOffsets},
    ROW<CCALENDARBANQUESTRATEGY>{kFrenchBankDays, kFrenchBankOffsets},
    ROW<CCALENDARPORTOSTRATEGY>{kPortugueseDays, kPortugueseOffsets},
    ROW<CCALENDARBANQUEPORTOSTRATEGY>{kPortugueseDays, kPortugueseOffsets},
};

static_assert(std::apply(
    [](const auto&... rows) { return (HOLIDAYCALENDAR::IsPossible(rows.fixedDays, rows.easterOffsets) && ...); },
    kOwnCalendars));

// Does not compile for a class without a row.
template <class Calendar>
const HOLIDAYCALENDAR& HolidaysOf() {
    constexpr ROW<Calendar> kRow = std::get<ROW<Calendar>>(kOwnCalendars);
    static const HOLIDAYCALENDAR holidays(kRow.fixedDays, kRow.easterOffsets);
    return holidays;
}

template <class... Calendars>
const HOLIDAYCALENDAR* FindHolidays(const CCALENDARSTRATEGY& calendar, const std::tuple<ROW<Calendars>...>&) {
    const HOLIDAYCALENDAR* found = nullptr;
    static_cast<void>(((IsExactly<Calendars>(calendar) && (found = &HolidaysOf<Calendars>()) != nullptr) || ...));
    return found;
}

}  // namespace

const HOLIDAYCALENDAR* OwnHolidays(const CCALENDARSTRATEGY& calendar) { return FindHolidays(calendar, kOwnCalendars); }

#define MLCORE_OWN_CALENDAR(CLASS)                                            \
    CSHAREOBJECTPTR<CLASS> CLASS::Create() { return AdoptObject(new CLASS); } \
    CLASS::~CLASS() = default;                                                \
    int CLASS::IsFerie(const CDATE& date) const { return HolidaysOf<CLASS>().IsHoliday(date) ? 1 : 0; }

MLCORE_OWN_CALENDAR(CCALENDARFRENCHSTRATEGY)
MLCORE_OWN_CALENDAR(CCALENDARBANQUESTRATEGY)
MLCORE_OWN_CALENDAR(CCALENDARPORTOSTRATEGY)
MLCORE_OWN_CALENDAR(CCALENDARBANQUEPORTOSTRATEGY)

#undef MLCORE_OWN_CALENDAR

}  // namespace MLCore
