#include <MLCore/datetime/detail/HOLIDAYCALENDAR.h>

#include <MLCore/datetime/Easter.h>
#include <MLCore/datetime/detail/SerialDay.h>

#include <algorithm>

namespace MLCore {

namespace {

std::int32_t NewYear(int year) noexcept { return serialday::FromFields(1, 1, year); }

std::int32_t EasterSunday(int year) noexcept {
    const EASTERSUNDAY easter = EasterOf(year);
    return serialday::FromFields(easter.day, easter.month, year);
}

bool IsSelected(std::int32_t serial, unsigned weekdays) noexcept {
    return (weekdays >> serialday::Weekday(serial) & 1U) != 0;
}

}  // namespace

HOLIDAYCALENDAR::HOLIDAYCALENDAR(std::span<const FIXEDDAY> fixedDays, std::span<const int> easterOffsets)
    : mFixedDays(fixedDays), mEasterOffsets(easterOffsets) {
    for (int i = 0; i < kYearCount; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const YEAR& year = mYears[at] = Compute(kFirstYear + i);
        mBefore[at + 1] = mBefore[at];
        for (std::size_t h = 0; h < year.count; ++h) {
            const int weekday = serialday::Weekday(NewYear(kFirstYear + i) + year.days[h]);
            ++mBefore[at + 1][static_cast<std::size_t>(weekday)];
        }
    }
}

bool HOLIDAYCALENDAR::IsTabled(int year) noexcept { return year >= kFirstYear && year < kFirstYear + kYearCount; }

HOLIDAYCALENDAR::YEAR HOLIDAYCALENDAR::Compute(int year) const noexcept {
    const std::int32_t newYear = NewYear(year);
    YEAR result;
    const auto add = [&](std::int32_t serial) {
        result.days[result.count++] = static_cast<std::int16_t>(serial - newYear);
    };
    for (const FIXEDDAY& fixed : mFixedDays) {
        add(serialday::FromFields(fixed.day, fixed.month, year));
    }
    const std::int32_t easter = EasterSunday(year);
    for (const int offset : mEasterOffsets) {
        add(easter + offset);
    }
    const auto first = result.days.begin();
    std::sort(first, first + result.count);
    result.count = static_cast<std::uint8_t>(std::unique(first, first + result.count) - first);
    return result;
}

bool HOLIDAYCALENDAR::IsHoliday(const CDATE& date) const noexcept {
    for (const FIXEDDAY& fixed : mFixedDays) {
        if (date.GetDay() == fixed.day && date.GetMonth() == fixed.month) {
            return true;
        }
    }
    if (date.GetMonth() < kFirstMonthOfOffsets || date.GetMonth() > kLastMonthOfOffsets || date.IsDate() == 0) {
        return false;
    }
    const std::int32_t distance = date.ComputeDaysFrom1904() - EasterSunday(date.GetYear());
    return std::find(mEasterOffsets.begin(), mEasterOffsets.end(), distance) != mEasterOffsets.end();
}

std::int32_t HOLIDAYCALENDAR::Count(std::int32_t first, std::int32_t last, unsigned weekdays) const noexcept {
    const int firstYear = serialday::ToFields(first).year;
    const int lastYear = serialday::ToFields(last).year;
    if (firstYear == lastYear) {
        return CountInYear(firstYear, first, last, weekdays);
    }
    return CountInYear(firstYear, first, NewYear(firstYear + 1), weekdays) +
           CountWholeYears(firstYear + 1, lastYear, weekdays) +
           CountInYear(lastYear, NewYear(lastYear), last, weekdays);
}

std::int32_t HOLIDAYCALENDAR::CountInYear(int year, std::int32_t first, std::int32_t last,
                                          unsigned weekdays) const noexcept {
    const YEAR computed = IsTabled(year) ? YEAR{} : Compute(year);
    const YEAR& holidays = IsTabled(year) ? mYears[static_cast<std::size_t>(year - kFirstYear)] : computed;
    const std::int32_t newYear = NewYear(year);
    std::int32_t count = 0;
    for (std::size_t h = 0; h < holidays.count; ++h) {
        const std::int32_t serial = newYear + holidays.days[h];
        count += serial >= first && serial < last && IsSelected(serial, weekdays) ? 1 : 0;
    }
    return count;
}

std::int32_t HOLIDAYCALENDAR::CountWholeYears(int first, int last, unsigned weekdays) const noexcept {
    constexpr int kEndYear = kFirstYear + kYearCount;
    std::int32_t count = 0;
    const auto countEach = [&](int from, int to) {
        for (int year = from; year < to; ++year) {
            count += CountInYear(year, NewYear(year), NewYear(year + 1), weekdays);
        }
    };
    countEach(first, std::min(last, kFirstYear));
    countEach(std::max(first, kEndYear), last);

    const int firstTabled = std::clamp(first, kFirstYear, kEndYear);
    const int lastTabled = std::clamp(last, firstTabled, kEndYear);
    const auto& before = mBefore[static_cast<std::size_t>(firstTabled - kFirstYear)];
    const auto& after = mBefore[static_cast<std::size_t>(lastTabled - kFirstYear)];
    for (std::size_t weekday = 0; weekday < CDATE::kDayCount; ++weekday) {
        count += (weekdays >> weekday & 1U) != 0 ? after[weekday] - before[weekday] : 0;
    }
    return count;
}

}  // namespace MLCore
