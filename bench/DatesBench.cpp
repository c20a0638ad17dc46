// Calendar dates beside std::chrono: a million dates of the years 1900 to 2100 in random order.

#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/Chrono.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;
using namespace std::chrono;
using namespace std::chrono_literals;

constexpr std::size_t kCount = 1'000'000;
constexpr std::int32_t kChronoOf1904 = sys_days(1904y / January / 1).time_since_epoch().count();

// The same data for both.
struct DATA {
    std::vector<CDATE> dates;
    std::vector<year_month_day> chronoDates;
    std::vector<std::int32_t> serials;
    std::vector<int> months;
};

DATA MakeData() {
    DATA data;
    std::mt19937 random(1904);
    std::uniform_int_distribution<std::int32_t> serial(CDATE(1, 1, 1900).ComputeDaysFrom1904(),
                                                       CDATE(31, 12, 2100).ComputeDaysFrom1904());
    std::uniform_int_distribution<int> months(-600, 600);
    for (std::size_t i = 0; i < kCount; ++i) {
        data.serials.push_back(serial(random));
        data.chronoDates.emplace_back(sys_days(days(data.serials.back() + kChronoOf1904)));
        data.dates.push_back(FromYearMonthDay(data.chronoDates.back()));
        data.months.push_back(months(random));
    }
    return data;
}

std::int64_t Pack(const CDATE& date) { return date.ToLDate(); }

std::int64_t Pack(const year_month_day& date) {
    return static_cast<int>(static_cast<unsigned>(date.day()) | static_cast<unsigned>(date.month()) << 8) +
           static_cast<int>(date.year()) * 65536;
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

void RegisterWorkloads(const DATA& data, CCALENDARSTRATEGY* calendar) {
    bench::WORKLOAD("serial day from fields", kCount)
        .Add("MLCore", [&](std::size_t i) { return data.dates[i].ComputeDaysFrom1904(); })
        .Add("std::chrono",
             [&](std::size_t i) { return sys_days(data.chronoDates[i]).time_since_epoch().count() - kChronoOf1904; });
    bench::WORKLOAD("fields from serial day", kCount)
        .Add("MLCore",
             [&](std::size_t i) {
                 CDATE date;
                 date.From1904(data.serials[i]);
                 return Pack(date);
             })
        .Add("std::chrono",
             [&](std::size_t i) { return Pack(year_month_day(sys_days(days(data.serials[i] + kChronoOf1904)))); });
    bench::WORKLOAD("weekday", kCount)
        .Add("MLCore",
             [&](std::size_t i) {
                 // Before 1904 it is negative.
                 const int day = data.dates[i].GetDayOfWeek();
                 return day < 0 ? day + 7 : day;
             })
        .Add("std::chrono", [&](std::size_t i) {
            return static_cast<int>(weekday(sys_days(data.chronoDates[i])).iso_encoding()) - 1;
        });
    bench::WORKLOAD("add months, day kept within the month", kCount)
        .Add("MLCore", [&](std::size_t i) { return Pack(AddMonths(data.dates[i], data.months[i])); })
        .Add("std::chrono", [&](std::size_t i) { return Pack(AddMonthsClamped(data.chronoDates[i], data.months[i])); });
    bench::WORKLOAD("week number and its year", kCount)
        .Add("MLCore",
             [&](std::size_t i) {
                 std::int16_t weekYear = 0;
                 const int week = data.dates[i].GetWeekNumber(&weekYear, calendar);
                 return weekYear * 100 + week;
             })
        .Add("std::chrono", [&](std::size_t i) { return IsoWeek(data.chronoDates[i]); });
}

}  // namespace

int main(int argc, char** argv) {
    const DATA data = MakeData();
    const auto calendar = CCALENDARFRENCHSTRATEGY::Create();
    RegisterWorkloads(data, calendar);
    return bench::Run(argc, argv);
}
