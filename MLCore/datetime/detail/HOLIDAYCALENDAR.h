#pragma once

#include <MLCore/datetime/CDATE.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace MLCore {

/// The public holidays of one country or trade: fixed days of every year, and days at a fixed distance from Easter
/// Sunday.
///
/// The holidays of the years in common use are computed once; those of other years at each question.
class HOLIDAYCALENDAR {
public:
    struct FIXEDDAY {
        std::int16_t day;
        std::int16_t month;
    };

    /// Keeps references to both tables, which must be possible ones.
    HOLIDAYCALENDAR(std::span<const FIXEDDAY> fixedDays, std::span<const int> easterOffsets);

    /// Whether the class can hold these tables: no more holidays than it has room for, fixed days that every year has,
    /// and movable days within the months in which it looks for them.
    [[nodiscard]] static constexpr bool IsPossible(std::span<const FIXEDDAY> fixedDays,
                                                   std::span<const int> easterOffsets) noexcept;

    /// Whether the date is a holiday. A fixed day counts by its day and month alone, whatever the year.
    [[nodiscard]] bool IsHoliday(const CDATE& date) const noexcept;

    /// The number of holidays in [first, last) that fall on the weekdays given as bits (bit 0 = Monday). Takes serial
    /// days of the years 0 to 32767, first <= last. Constant time over the years in common use.
    [[nodiscard]] std::int32_t Count(std::int32_t first, std::int32_t last, unsigned weekdays) const noexcept;

private:
    static constexpr std::size_t kMostHolidays = 16;

    // Days of the year from 0, ascending and each once: two holidays may fall on one day.
    struct YEAR {
        std::uint8_t count = 0;
        std::array<std::int16_t, kMostHolidays> days{};
    };

    static constexpr int kFirstYear = 1900;
    static constexpr int kYearCount = 300;

    // Easter Sunday lies between 22 March and 25 April: with these offsets, no day leaves February to June.
    static constexpr int kFirstMonthOfOffsets = 2;
    static constexpr int kLastMonthOfOffsets = 6;
    static constexpr int kLeastOffset = -49;
    static constexpr int kMostOffset = 66;

    [[nodiscard]] YEAR Compute(int year) const noexcept;
    [[nodiscard]] static bool IsTabled(int year) noexcept;
    [[nodiscard]] std::int32_t CountInYear(int year, std::int32_t first, std::int32_t last,
                                           unsigned weekdays) const noexcept;
    [[nodiscard]] std::int32_t CountWholeYears(int first, int last, unsigned weekdays) const noexcept;

    std::span<const FIXEDDAY> mFixedDays;
    std::span<const int> mEasterOffsets;
    std::array<YEAR, kYearCount> mYears;
    // Holidays on each weekday in the tabled years before this one.
    std::array<std::array<std::uint16_t, CDATE::kDayCount>, kYearCount + 1> mBefore{};
};

constexpr bool HOLIDAYCALENDAR::IsPossible(std::span<const FIXEDDAY> fixedDays,
                                           std::span<const int> easterOffsets) noexcept {
    const auto isInEveryYear = [](const FIXEDDAY& fixed) {
        constexpr int kCommonYear = 2023;
        return fixed.day >= 1 && fixed.day <= CDATE::DaysInMonth(fixed.month, kCommonYear);
    };
    const auto isLookedFor = [](int offset) { return offset >= kLeastOffset && offset <= kMostOffset; };
    return fixedDays.size() + easterOffsets.size() <= kMostHolidays &&
           std::all_of(fixedDays.begin(), fixedDays.end(), isInEveryYear) &&
           std::all_of(easterOffsets.begin(), easterOffsets.end(), isLookedFor);
}

}  // namespace MLCore
