// Business days in France over 1, 10 and 50 years, beside a day-by-day loop with std::chrono and a table of holidays,
// and beside QuantLib where it is installed. The limit knows the business days of each day's past beforehand. Then a
// calendar of an application's own, which must be asked about each day.

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

#if defined(MLCORE_HAVE_QUANTLIB)
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

    [[nodiscard]] bool IsOpen(sys_days day) const {
        return weekday(day).iso_encoding() < 6 && !std::binary_search(mHolidays.begin(), mHolidays.end(), day);
    }

private:
    std::vector<sys_days> mHolidays = FrenchHolidays();
};

// All business days, and how many there are before each day.
class KNOWN {
public:
    explicit KNOWN(const DAYBYDAY& dayByDay) {
        for (sys_days day = kStart; day < sys_days(year(kLastYear) / January / 1); day += days(1)) {
            mBefore.push_back(static_cast<std::int32_t>(mOpen.size()));
            if (dayByDay.IsOpen(day)) {
                mOpen.push_back(day);
            }
        }
    }

    [[nodiscard]] std::int64_t Count(sys_days first, sys_days last) const { return Before(last) - Before(first); }
    [[nodiscard]] sys_days Step(sys_days day, int count) const {
        return mOpen[static_cast<std::size_t>(Before(day + days(1)) + count - 1)];
    }

private:
    static constexpr sys_days kStart{year(kFirstYear) / January / 1};

    [[nodiscard]] std::int32_t Before(sys_days day) const {
        return mBefore[static_cast<std::size_t>((day - kStart).count())];
    }

    std::vector<sys_days> mOpen;
    std::vector<std::int32_t> mBefore;
};

// A calendar of an application's own: a house that stays closed on two more days of every year.
class CHOUSECALENDAR : public CCALENDARFRENCHSTRATEGY {
public:
    int IsFerie(const CDATE& date) const override {
        return date.GetDay() == (date.GetMonth() == 12  ? 24
                                 : date.GetMonth() == 1 ? 2
                                                        : 0)
                   ? 1
                   : CCALENDARFRENCHSTRATEGY::IsFerie(date);
    }
};

struct PAIR {
    CDATE first;
    CDATE last;
    sys_days chronoFirst;
    sys_days chronoLast;
    int businessDays;
#if defined(MLCORE_HAVE_QUANTLIB)
    QuantLib::Date quantLibFirst;
    QuantLib::Date quantLibLast;
#endif
};

#if defined(MLCORE_HAVE_QUANTLIB)
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

// The same house with QuantLib's means.
class QUANTLIBHOUSE : public QuantLib::Calendar {
public:
    QUANTLIBHOUSE() { impl_ = QuantLib::ext::make_shared<IMPL>(); }

private:
    class IMPL : public WesternImpl {
    public:
        std::string name() const override { return "House"; }
        bool isBusinessDay(const QuantLib::Date& date) const override {
            if (isWeekend(date.weekday())) {
                return false;
            }
            switch (date.month() * 100 + date.dayOfMonth()) {
                case 101:
                case 102:
                case 501:
                case 508:
                case 714:
                case 815:
                case 1101:
                case 1111:
                case 1224:
                case 1225:
                    return false;
                default:
                    const QuantLib::Day fromEasterMonday = date.dayOfYear() - easterMonday(date.year());
                    return fromEasterMonday != 0 && fromEasterMonday != 38 && fromEasterMonday != 49;
            }
        }
    };
};
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
#if defined(MLCORE_HAVE_QUANTLIB)
        pair.quantLibFirst = ToQuantLib(pair.first);
        pair.quantLibLast = ToQuantLib(pair.last);
#endif
        pairs.push_back(pair);
    }
    return pairs;
}

void RegisterCounting(const std::string& span, const std::vector<PAIR>& pairs, CCALENDARSTRATEGY* calendar,
                      const DAYBYDAY& dayByDay, const KNOWN& known) {
    bench::WORKLOAD workload("count over " + span, pairs.size());
    workload
        .Add("MLCore",
             [&, calendar](std::size_t i) { return pairs[i].first.ComputeDaysOuvre(pairs[i].last, calendar); })
        .Add("std::chrono, day by day",
             [&](std::size_t i) { return dayByDay.Count(pairs[i].chronoFirst, pairs[i].chronoLast); });
#if defined(MLCORE_HAVE_QUANTLIB)
    workload.Add("QuantLib", [&, france = MakeQuantLibCalendar()](std::size_t i) {
        return france.businessDaysBetween(pairs[i].quantLibFirst, pairs[i].quantLibLast);
    });
#endif
    workload.AddLimit("a table of all days",
                      [&](std::size_t i) { return known.Count(pairs[i].chronoFirst, pairs[i].chronoLast); });
}

void RegisterStepping(const std::string& span, const std::vector<PAIR>& pairs, CCALENDARSTRATEGY* calendar,
                      const DAYBYDAY& dayByDay, const KNOWN& known) {
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
#if defined(MLCORE_HAVE_QUANTLIB)
    workload.Add("QuantLib", [&, origin = ToQuantLib(origin), france = MakeQuantLibCalendar()](std::size_t i) {
        return france.advance(pairs[i].quantLibFirst, pairs[i].businessDays, QuantLib::Days) - origin;
    });
#endif
    workload.AddLimit("a table of all business days", [&, origin = ToSysDays(origin)](std::size_t i) {
        return (known.Step(pairs[i].chronoFirst, pairs[i].businessDays) - origin).count();
    });
}

void RegisterOwnCalendar(const std::vector<PAIR>& pairs, CCALENDARSTRATEGY* house, const DAYBYDAY& dayByDay) {
    bench::WORKLOAD workload("count with a calendar of one's own, 10 years", pairs.size());
    workload.Add("MLCore", [&, house](std::size_t i) { return pairs[i].first.ComputeDaysOuvre(pairs[i].last, house); });
#if defined(MLCORE_HAVE_QUANTLIB)
    workload.Add("QuantLib", [&, house = QUANTLIBHOUSE()](std::size_t i) {
        return house.businessDaysBetween(pairs[i].quantLibFirst, pairs[i].quantLibLast);
    });
#endif
    workload.AddLimit("day by day with a table of the holidays", [&](std::size_t i) {
        std::int64_t count = 0;
        for (sys_days day = pairs[i].chronoFirst; day < pairs[i].chronoLast; day += days(1)) {
            const year_month_day date(day);
            count += dayByDay.IsOpen(day) && date.month() / date.day() != December / 24 &&
                             date.month() / date.day() != January / 2
                         ? 1
                         : 0;
        }
        return count;
    });
}

}  // namespace

int main(int argc, char** argv) {
    const struct {
        std::string name;
        std::vector<PAIR> pairs;
    } kSpans[] = {{"1 year", MakePairs(1)}, {"10 years", MakePairs(10)}, {"50 years", MakePairs(50)}};
    const auto calendar = CCALENDARFRENCHSTRATEGY::Create();
    const CSHAREOBJECTPTR<CCALENDARSTRATEGY> house = AdoptObject<CCALENDARSTRATEGY>(new CHOUSECALENDAR);
    const DAYBYDAY dayByDay;
    const KNOWN known(dayByDay);
    for (const auto& span : kSpans) {
        RegisterCounting(span.name, span.pairs, calendar, dayByDay, known);
    }
    for (const auto& span : kSpans) {
        RegisterStepping(span.name, span.pairs, calendar, dayByDay, known);
    }
    RegisterOwnCalendar(kSpans[1].pairs, house, dayByDay);
    return bench::Run(argc, argv);
}
