// Calendar dates beside std::chrono, and beside Boost.DateTime, Qt and Abseil where they are installed: a million dates
// of the years 1900 to 2100 in random order.

#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/Chrono.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#if defined(MLCORE_HAVE_BOOST_DATE_TIME)
#include <boost/date_time/gregorian/gregorian_types.hpp>
#endif
#if defined(MLCORE_HAVE_QT)
#include <QtCore/QDate>
#endif
#if defined(MLCORE_HAVE_ABSL)
#include <absl/time/civil_time.h>
#endif

#include "support/Workload.h"

namespace {

using namespace MLCore;
using namespace std::chrono;
using namespace std::chrono_literals;

constexpr std::size_t kCount = 1'000'000;
constexpr std::int32_t kChronoOf1904 = sys_days(1904y / January / 1).time_since_epoch().count();

constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2100;

// The fields and nothing else, for the limit.
struct PLAINDATE {
    std::int32_t day, month, year;
};

// The same data for all.
struct DATA {
    std::vector<CDATE> dates;
    std::vector<PLAINDATE> plainDates;
    std::vector<year_month_day> chronoDates;
    std::vector<std::int32_t> serials;
    std::vector<int> months;
};

DATA MakeData() {
    DATA data;
    std::mt19937 random(1904);
    std::uniform_int_distribution<std::int32_t> serial(CDATE(1, 1, kFirstYear).ComputeDaysFrom1904(),
                                                       CDATE(31, 12, kLastYear).ComputeDaysFrom1904());
    std::uniform_int_distribution<int> months(-600, 600);
    for (std::size_t i = 0; i < kCount; ++i) {
        data.serials.push_back(serial(random));
        data.chronoDates.emplace_back(sys_days(days(data.serials.back() + kChronoOf1904)));
        data.dates.push_back(FromYearMonthDay(data.chronoDates.back()));
        const CDATE& date = data.dates.back();
        data.plainDates.push_back({date.GetDay(), date.GetMonth(), date.GetYear()});
        data.months.push_back(months(random));
    }
    return data;
}

std::int64_t Pack(int year, int month, int day) { return day + month * 256 + year * 65536; }

std::int64_t Pack(const CDATE& date) { return date.ToLDate(); }

std::int64_t Pack(const year_month_day& date) {
    return Pack(static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                static_cast<int>(static_cast<unsigned>(date.day())));
}

year_month_day AddMonthsClamped(const year_month_day& date, int months) {
    const year_month_day moved = date + std::chrono::months(months);
    return moved.ok() ? moved : year_month_day(moved.year() / moved.month() / last);
}

// Year and number of the ISO week: those of its Thursday.
std::int64_t IsoWeek(const year_month_day& date) {
    const sys_days day(date);
    const sys_days thursday = day + days(4 - static_cast<int>(weekday(day).iso_encoding()));
    const year thursdayYear = year_month_day(thursday).year();
    const auto week = (thursday - sys_days(thursdayYear / January / 1)).count() / 7 + 1;
    return static_cast<int>(thursdayYear) * 100 + week;
}

// What can be known beforehand: about each month, and about each day of the years that occur.
std::int32_t DaysBetween(sys_days first, sys_days second) {
    return static_cast<std::int32_t>((second - first).count());
}

struct TABLES {
    static constexpr int kFirstLength = (kFirstYear - 50) * 12;

    std::vector<std::int32_t> beforeMonth;
    std::vector<std::int32_t> packed;
    std::vector<std::int32_t> weeks;
    std::vector<std::int8_t> lengths;  // from fifty years earlier to fifty years later
    std::int32_t first = 0;

    TABLES() {
        const sys_days start(year(kFirstYear) / January / 1);
        const sys_days end(year(kLastYear + 1) / January / 1);
        first = DaysBetween(sys_days(1904y / January / 1), start);
        for (sys_days day = start; day < end; day += days(1)) {
            const year_month_day date(day);
            if (date.day() == std::chrono::day(1)) {
                beforeMonth.push_back(first + DaysBetween(start, day) - 1);
            }
            packed.push_back(static_cast<std::int32_t>(Pack(date)));
            weeks.push_back(static_cast<std::int32_t>(IsoWeek(date)));
        }
        for (int month = kFirstLength; month < (kLastYear + 51) * 12; ++month) {
            const year_month_day_last lastDay = year(month / 12) / (month % 12 + 1) / last;
            lengths.push_back(static_cast<std::int8_t>(static_cast<unsigned>(lastDay.day())));
        }
    }

    [[nodiscard]] std::int32_t SerialDay(const PLAINDATE& date) const {
        return beforeMonth[static_cast<std::size_t>((date.year - kFirstYear) * 12 + date.month - 1)] + date.day;
    }
};

#if defined(MLCORE_HAVE_BOOST_DATE_TIME)
const boost::gregorian::date kBoost1904(1904, 1, 1);
#endif
#if defined(MLCORE_HAVE_QT)
const qint64 kQt1904 = QDate(1904, 1, 1).toJulianDay();
#endif
#if defined(MLCORE_HAVE_ABSL)
const absl::CivilDay kAbsl1904(1904, 1, 1);
#endif

// The peers' own dates hold a count of days (Boost, Qt) or the fields (Abseil); each is made from what is given, and
// asked for the other form.
void RegisterToSerial(const DATA& data, const TABLES& tables) {
    bench::WORKLOAD workload("serial day from fields", kCount);
    workload.Add("MLCore", [&](std::size_t i) { return data.dates[i].ComputeDaysFrom1904(); })
        .Add("std::chrono",
             [&](std::size_t i) { return sys_days(data.chronoDates[i]).time_since_epoch().count() - kChronoOf1904; });
#if defined(MLCORE_HAVE_BOOST_DATE_TIME)
    workload.Add("Boost.DateTime", [&](std::size_t i) {
        const PLAINDATE& date = data.plainDates[i];
        return (boost::gregorian::date(static_cast<unsigned short>(date.year), static_cast<unsigned short>(date.month),
                                       static_cast<unsigned short>(date.day)) -
                kBoost1904)
            .days();
    });
#endif
#if defined(MLCORE_HAVE_QT)
    workload.Add("QDate", [&](std::size_t i) {
        const PLAINDATE& date = data.plainDates[i];
        return QDate(date.year, date.month, date.day).toJulianDay() - kQt1904;
    });
#endif
#if defined(MLCORE_HAVE_ABSL)
    workload.Add("absl::CivilDay", [&](std::size_t i) {
        const PLAINDATE& date = data.plainDates[i];
        return absl::CivilDay(date.year, date.month, date.day) - kAbsl1904;
    });
#endif
    workload.AddLimit("a table of all months", [&](std::size_t i) { return tables.SerialDay(data.plainDates[i]); });
}

void RegisterToFields(const DATA& data, const TABLES& tables) {
    bench::WORKLOAD workload("fields from serial day", kCount);
    workload
        .Add("MLCore",
             [&](std::size_t i) {
                 CDATE date;
                 date.From1904(data.serials[i]);
                 return Pack(date);
             })
        .Add("std::chrono",
             [&](std::size_t i) { return Pack(year_month_day(sys_days(days(data.serials[i] + kChronoOf1904)))); });
#if defined(MLCORE_HAVE_BOOST_DATE_TIME)
    workload.Add("Boost.DateTime", [&](std::size_t i) {
        const auto date = (kBoost1904 + boost::gregorian::days(data.serials[i])).year_month_day();
        return Pack(date.year, date.month, date.day);
    });
#endif
#if defined(MLCORE_HAVE_QT)
    workload.Add("QDate", [&](std::size_t i) {
        int year = 0;
        int month = 0;
        int day = 0;
        QDate::fromJulianDay(kQt1904 + data.serials[i]).getDate(&year, &month, &day);
        return Pack(year, month, day);
    });
#endif
#if defined(MLCORE_HAVE_ABSL)
    workload.Add("absl::CivilDay", [&](std::size_t i) {
        const absl::CivilDay date = kAbsl1904 + data.serials[i];
        return Pack(static_cast<int>(date.year()), date.month(), date.day());
    });
#endif
    workload.AddLimit("a table of all days", [&](std::size_t i) {
        return tables.packed[static_cast<std::size_t>(data.serials[i] - tables.first)];
    });
}

void RegisterQuestions(const DATA& data, const TABLES& tables, CCALENDARSTRATEGY* calendar) {
    bench::WORKLOAD("weekday", kCount)
        .Add("MLCore",
             [&](std::size_t i) {
                 // Before 1904 it is negative.
                 const int day = data.dates[i].GetDayOfWeek();
                 return day < 0 ? day + 7 : day;
             })
        .Add("std::chrono",
             [&](std::size_t i) { return static_cast<int>(weekday(sys_days(data.chronoDates[i])).iso_encoding()) - 1; })
        .AddLimit("a table of all months", [&](std::size_t i) {
            // 1 January 1900 was a Monday.
            return static_cast<int>(static_cast<std::uint32_t>(tables.SerialDay(data.plainDates[i]) - tables.first) %
                                    7);
        });
    bench::WORKLOAD("add months, day kept within the month", kCount)
        .Add("MLCore", [&](std::size_t i) { return Pack(AddMonths(data.dates[i], data.months[i])); })
        .Add("std::chrono", [&](std::size_t i) { return Pack(AddMonthsClamped(data.chronoDates[i], data.months[i])); })
        .AddLimit("a table of the lengths of all months", [&](std::size_t i) {
            const PLAINDATE& date = data.plainDates[i];
            const int month = date.year * 12 + date.month - 1 + data.months[i];
            const int length = tables.lengths[static_cast<std::size_t>(month - TABLES::kFirstLength)];
            return Pack(month / 12, month % 12 + 1, std::min(date.day, length));
        });
    bench::WORKLOAD("week number and its year", kCount)
        .Add("MLCore",
             [&](std::size_t i) {
                 std::int16_t weekYear = 0;
                 const int week = data.dates[i].GetWeekNumber(&weekYear, calendar);
                 return weekYear * 100 + week;
             })
        .Add("std::chrono", [&](std::size_t i) { return IsoWeek(data.chronoDates[i]); })
        .AddLimit("a table of all days", [&](std::size_t i) {
            return tables.weeks[static_cast<std::size_t>(tables.SerialDay(data.plainDates[i]) - tables.first)];
        });
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData();
    const TABLES tables;
    const auto calendar = CCALENDARFRENCHSTRATEGY::Create();
    RegisterToSerial(data, tables);
    RegisterToFields(data, tables);
    RegisterQuestions(data, tables, calendar);
    return bench::Run(argc, argv);
}
