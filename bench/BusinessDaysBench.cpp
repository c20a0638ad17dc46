// Business days in France over 1, 10 and 50 years, beside a day-by-day loop with std::chrono and a table of holidays, and
// beside QuantLib where it is installed.

#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/Chrono.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#ifdef MLCORE_HAVE_QUANTLIB
#include <ql/time/calendars/bespokecalendar.hpp>
#endif

#include "support/Workload.h"

namespace {

using namespace MLCore;
using namespace std::chrono;
using namespace std::chrono_literals;

constexpr std::size_t kCount = 200;
constexpr int kFirstYear = 1950;
constexpr int kLastYear = 2150;

// Another way to Easter than the library's: C. F. Gauss's, as corrected by H. Lichtenberg.
sys_days Easter(int y) {
    const int k = y / 100;
    const int moon = 15 + (3 * k + 3) / 4 - (8 * k + 13) / 25;
    const int a = y % 19;
    const int d = (19 * a + moon) % 30;
    const int limit = 21 + d - (d + a / 11) / 29;
    const int sunday = 7 - (y + y / 4 + 2 - (3 * k + 3) / 4) % 7;
    return sys_days(year(y) / March / 1) + days(limit + 7 - (limit - sunday) % 7 - 1);
}

std::vector<sys_days> FrenchHolidays() {
    constexpr month_day kFixed[] = {January / 1, May / 1,      May / 8,       July / 14,
                                    August / 15, November / 1, November / 11, December / 25};
    std::vector<sys_days> holidays;
    for (int y = kFirstYear; y <= kLastYear; ++y) {
        for (const month_day& day : kFixed) {
            holidays.emplace_back(year(y) / day);
        }
        for (const int offset : {1, 39, 50}) {
            holidays.push_back(Easter(y) + days(offset));
        }
    }
    std::sort(holidays.begin(), holidays.end());
    return holidays;
}

// What a program without a library does.
class DAYBYDAY {
public:
    [[nodiscard]] std::int64_t Count(sys_days first, sys_days last) const {
        std::int64_t count = 0;
        for (; first < last; first += days(1)) {
            count += IsOpen(first) ? 1 : 0;
        }
        return count;
    }

    [[nodiscard]] sys_days Step(sys_days day, int count) const {
        while (count > 0) {
            day += days(1);
            count -= IsOpen(day) ? 1 : 0;
        }
        return day;
    }

private:
    [[nodiscard]] bool IsOpen(sys_days day) const {
        return weekday(day).iso_encoding() < 6 && !std::binary_search(mHolidays.begin(), mHolidays.end(), day);
    }

    std::vector<sys_days> mHolidays = FrenchHolidays();
};

struct PAIR {
    CDATE first;
    CDATE last;
    sys_days chronoFirst;
    sys_days chronoLast;
    int businessDays;
#ifdef MLCORE_HAVE_QUANTLIB
    QuantLib::Date quantLibFirst;
    QuantLib::Date quantLibLast;
#endif
};

#ifdef MLCORE_HAVE_QUANTLIB
QuantLib::Date ToQuantLib(const CDATE& date) {
    return {date.GetDay(), static_cast<QuantLib::Month>(date.GetMonth()), date.GetYear()};
}

// The calendar that QuantLib brings for France has Ascension Thursday and Whit Monday on fixed days.
QuantLib::Calendar MakeQuantLibCalendar() {
    QuantLib::BespokeCalendar calendar("France");
    calendar.addWeekend(QuantLib::Saturday);
    calendar.addWeekend(QuantLib::Sunday);
    for (const sys_days& day : FrenchHolidays()) {
        calendar.addHoliday(ToQuantLib(FromSysDays(day)));
    }
    return calendar;
}
#endif

// About so many years long, starting on any day of the first fifty years.
std::vector<PAIR> MakePairs(int years) {
    std::vector<PAIR> pairs;
    std::mt19937 random(static_cast<unsigned>(years));
    std::uniform_int_distribution<int> start(0, 50 * 365);
    std::uniform_int_distribution<int> more(-30, 30);
    for (std::size_t i = 0; i < kCount; ++i) {
        PAIR pair;
        pair.first = CDATE(1, 1, kFirstYear) + start(random);
        pair.last = AddYears(pair.first, years) + more(random);
        pair.chronoFirst = ToSysDays(pair.first);
        pair.chronoLast = ToSysDays(pair.last);
        pair.businessDays = years * 252 + more(random);
#ifdef MLCORE_HAVE_QUANTLIB
        pair.quantLibFirst = ToQuantLib(pair.first);
        pair.quantLibLast = ToQuantLib(pair.last);
#endif
        pairs.push_back(pair);
    }
    return pairs;
}

void RegisterCounting(const std::string& span, const std::vector<PAIR>& pairs, CCALENDARSTRATEGY* calendar,
                      const DAYBYDAY& dayByDay) {
    bench::WORKLOAD workload("count over " + span, pairs.size());
    workload
        .Add("MLCore",
             [&, calendar](std::size_t i) { return pairs[i].first.ComputeDaysOuvre(pairs[i].last, calendar); })
        .Add("std::chrono, day by day",
             [&](std::size_t i) { return dayByDay.Count(pairs[i].chronoFirst, pairs[i].chronoLast); });
#ifdef MLCORE_HAVE_QUANTLIB
    workload.Add("QuantLib", [&, france = MakeQuantLibCalendar()](std::size_t i) {
        return france.businessDaysBetween(pairs[i].quantLibFirst, pairs[i].quantLibLast);
    });
#endif
}

void RegisterStepping(const std::string& span, const std::vector<PAIR>& pairs, CCALENDARSTRATEGY* calendar,
                      const DAYBYDAY& dayByDay) {
    const CDATE origin(1, 1, kFirstYear);
    bench::WORKLOAD workload("step over " + span, pairs.size());
    workload
        .Add("MLCore",
             [&, origin, calendar](std::size_t i) {
                 return AddDaysOuvre(pairs[i].first, pairs[i].businessDays, calendar) - origin;
             })
        .Add("std::chrono, day by day", [&, origin = ToSysDays(origin)](std::size_t i) {
            return (dayByDay.Step(pairs[i].chronoFirst, pairs[i].businessDays) - origin).count();
        });
#ifdef MLCORE_HAVE_QUANTLIB
    workload.Add("QuantLib", [&, origin = ToQuantLib(origin), france = MakeQuantLibCalendar()](std::size_t i) {
        return france.advance(pairs[i].quantLibFirst, pairs[i].businessDays, QuantLib::Days) - origin;
    });
#endif
}

}  // namespace

int main(int argc, char** argv) {
    const struct {
        std::string name;
        std::vector<PAIR> pairs;
    } kSpans[] = {{"1 year", MakePairs(1)}, {"10 years", MakePairs(10)}, {"50 years", MakePairs(50)}};
    const auto calendar = CCALENDARFRENCHSTRATEGY::Create();
    const DAYBYDAY dayByDay;
    for (const auto& span : kSpans) {
        RegisterCounting(span.name, span.pairs, calendar, dayByDay);
    }
    for (const auto& span : kSpans) {
        RegisterStepping(span.name, span.pairs, calendar, dayByDay);
    }
    return bench::Run(argc, argv);
}
