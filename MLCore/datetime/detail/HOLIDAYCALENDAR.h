#pragma once

#include <MLCore/datetime/CDATE.h>

#include <array>
#include <cstdint>
#include <span>

namespace MLCore {

/// The public holidays of one country or trade: fixed days of every year, and days at a fixed distance from Easter
/// Sunday.
///
/// The holidays of the years in common use are computed once; other years at each question.
class HOLIDAYCALENDAR {
public:
    struct FIXEDDAY {
        std::int16_t day;
        std::int16_t month;
    };

    /// Both tables are kept by reference. At most kMostHolidays entries together.
    HOLIDAYCALENDAR(std::span<const FIXEDDAY> fixedDays, std::span<const int> easterOffsets);

    /// Whether the date is a holiday. A fixed day counts by its day and month alone, whatever the year.
    [[nodiscard]] bool IsHoliday(const CDATE& date) const noexcept;

    /// The number of holidays in [first, last) that fall on the weekdays given as bits (bit 0 = Monday). Serial days of
    /// the years 0 to 32767, first <= last. Constant time over the years in common use.
    [[nodiscard]] std::int32_t Count(std::int32_t first, std::int32_t last, unsigned weekdays) const noexcept;

    static constexpr std::size_t kMostHolidays = 16;

private:
    // Days of the year from 0, ascending and each once: two holidays may fall on one day.
    struct YEAR {
        std::uint8_t count = 0;
        std::array<std::int16_t, kMostHolidays> days{};
    };

    static constexpr int kFirstYear = 1900;
    static constexpr int kYearCount = 300;

    [[nodiscard]] YEAR Compute(int year) const noexcept;
    [[nodiscard]] static bool IsTabled(int year) noexcept {
        return year >= kFirstYear && year < kFirstYear + kYearCount;
    }
    [[nodiscard]] std::int32_t CountInYear(int year, std::int32_t first, std::int32_t last,
                                           unsigned weekdays) const noexcept;
    [[nodiscard]] std::int32_t CountWholeYears(int first, int last, unsigned weekdays) const noexcept;

    std::span<const FIXEDDAY> mFixedDays;
    std::span<const int> mEasterOffsets;
    std::array<YEAR, kYearCount> mYears;
    // Holidays on each weekday in the tabled years before this one.
    std::array<std::array<std::uint16_t, 7>, kYearCount + 1> mBefore{};
};

/// The calendars of the library, built at their first use by any thread.
[[nodiscard]] const HOLIDAYCALENDAR& FrenchHolidays();
[[nodiscard]] const HOLIDAYCALENDAR& FrenchBankHolidays();
[[nodiscard]] const HOLIDAYCALENDAR& PortugueseHolidays();

}  // namespace MLCore
