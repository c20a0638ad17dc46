/// Bridges between the dates and times of the library and those of std::chrono.
///
///     CDATE due(30, 4, 2026);
///     std::chrono::weekday day = std::chrono::sys_days(ToYearMonthDay(due));   // Thursday
///     due = FromSysDays(ToSysDays(due) + std::chrono::days(10));               // 10/5/2026
///
/// A null date or one that is not valid becomes a year_month_day that is not ok(), and the other way round. In days and
/// seconds, such a date counts by its fields as in CDATE::ComputeDaysFrom1904(), the null date too: call IsNull()
/// first. Days and seconds whose year does not fit 16 bits become the null date. Nothing fails.
#pragma once

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>

#include <chrono>

namespace MLCore {

[[nodiscard]] constexpr std::chrono::year_month_day ToYearMonthDay(const CDATE& date) noexcept {
    // Months and days of chrono wrap at 256; a field that does not fit must not become a valid one.
    const bool fits = date.IsDate() != 0;
    return {std::chrono::year(date.GetYear()), std::chrono::month(fits ? static_cast<unsigned>(date.GetMonth()) : 0U),
            std::chrono::day(fits ? static_cast<unsigned>(date.GetDay()) : 0U)};
}

[[nodiscard]] constexpr CDATE FromYearMonthDay(const std::chrono::year_month_day& date) noexcept {
    // By the setters: the constructor refuses such fields in constant expressions.
    CDATE result;
    result.SetDay(static_cast<std::int16_t>(static_cast<unsigned>(date.day())));
    result.SetMonth(static_cast<std::int16_t>(static_cast<unsigned>(date.month())));
    result.SetYear(static_cast<std::int16_t>(static_cast<int>(date.year())));
    return result;
}

[[nodiscard]] constexpr std::chrono::sys_days ToSysDays(const CDATE& date) noexcept {
    return std::chrono::sys_days(std::chrono::days(date.ComputeDaysFrom1904() - serialday::kUnixEpoch));
}

[[nodiscard]] constexpr CDATE FromSysDays(std::chrono::sys_days day) noexcept {
    const long long count = day.time_since_epoch().count();
    CDATE date;
    if (count >= serialday::kFirst - serialday::kUnixEpoch && count <= serialday::kLast - serialday::kUnixEpoch) {
        date.From1904(static_cast<long>(count + serialday::kUnixEpoch));
    }
    return date;
}

[[nodiscard]] constexpr std::chrono::hh_mm_ss<std::chrono::seconds> ToHhMmSs(const CTIME& time) noexcept {
    return std::chrono::hh_mm_ss<std::chrono::seconds>(std::chrono::seconds(time.GetTotalSeconds()));
}

/// Wraps around midnight as all arithmetic of CTIME does.
[[nodiscard]] inline CTIME FromHhMmSs(const std::chrono::hh_mm_ss<std::chrono::seconds>& time) noexcept {
    CTIME result;
    result.FromSeconds(static_cast<long>(time.to_duration().count() % 86400));
    return result;
}

/// The date-time is taken as UTC; call CDATETIME::ToGMZone() first on one in local time.
[[nodiscard]] constexpr std::chrono::sys_seconds ToSysSeconds(const CDATETIME& moment) noexcept {
    return ToSysDays(moment.GetDate()) + std::chrono::seconds(moment.GetTime().GetTotalSeconds());
}

/// The date-time in UTC; CDATETIME::ToLocalZone() converts it to local time.
[[nodiscard]] inline CDATETIME FromSysSeconds(std::chrono::sys_seconds moment) noexcept {
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const CDATE date = FromSysDays(day);
    CTIME time;
    if (date.IsNull() == 0) {
        time.FromSeconds(static_cast<long>((moment - day).count()));
    }
    return {date, time};
}

}  // namespace MLCore
