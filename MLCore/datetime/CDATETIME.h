#pragma once

#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/platform/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

namespace MLCore {

/// A date and a time of day: a moment in the zone that its user means. A value type of 10 bytes. Nothing fails; only
/// texts take memory.
///
///     CDATETIME moment(CDATE(5, 3, 2024), CTIME(23, 30, 0));
///     moment.ToLocalZone();                  // from UTC to the process's local zone
///     moment += CTIMESPAN(90 * 60);          // across midnight, month and year
///     CTIMESPAN since = CDATETIME::Now() - moment;
///
/// It is null when its date is. Arithmetic and zone conversion leave a null date-time unchanged, and give the null
/// date-time where the year does not fit 16 bits. Parts out of range are stored and compared as they are. Adding spans,
/// seconds, minutes and hours brings date and time into range; adding days, months and years, the date only.
class MLCORE_API CDATETIME {
public:
    /// The null date-time.
    constexpr CDATETIME() noexcept = default;
    constexpr CDATETIME(const CDATE& date, const CTIME& time) noexcept : mDate(date), mTime(time) {}

    /// The present date and time in the local zone.
    [[nodiscard]] static CDATETIME Now() noexcept;

    [[nodiscard]] constexpr const CDATE& GetDate() const noexcept { return mDate; }
    [[nodiscard]] constexpr const CTIME& GetTime() const noexcept { return mTime; }
    constexpr void SetDate(const CDATE& date) noexcept { mDate = date; }
    constexpr void SetTime(const CTIME& time) noexcept { mTime = time; }
    /// 1 when the date is null, whatever the time.
    [[nodiscard]] constexpr int IsNull() const noexcept { return mDate.IsNull(); }
    /// 1 when the date and the time are in range.
    [[nodiscard]] constexpr int IsDateTime() const noexcept { return mDate.IsDate() != 0 ? mTime.IsTime() : 0; }

    CDATETIME& operator+=(const CTIMESPAN& span) noexcept;
    CDATETIME& operator-=(const CTIMESPAN& span) noexcept { return *this += -span; }
    friend CDATETIME operator+(CDATETIME moment, const CTIMESPAN& span) noexcept { return moment += span; }
    friend CDATETIME operator-(CDATETIME moment, const CTIMESPAN& span) noexcept { return moment -= span; }
    friend CDATETIME operator+(const CTIMESPAN& span, CDATETIME moment) noexcept { return moment += span; }
    /// The span from right to left, negative when the left one is the earlier, without regard to zones.
    friend CTIMESPAN operator-(const CDATETIME& left, const CDATETIME& right) noexcept {
        return CTIMESPAN(left.SecondsFrom1904() - right.SecondsFrom1904());
    }
    CDATETIME& AddSeconds(long seconds) noexcept { return *this += CTIMESPAN(seconds); }
    CDATETIME& AddMinutes(long minutes) noexcept;
    CDATETIME& AddHours(long hours) noexcept;
    /// As CDATE does; the time stays the same.
    CDATETIME& AddDays(long days) noexcept;
    CDATETIME& AddMonths(long months) noexcept;
    CDATETIME& AddYears(long years) noexcept;

    /// By date, then time.
    friend constexpr bool operator==(const CDATETIME&, const CDATETIME&) noexcept = default;
    friend constexpr std::weak_ordering operator<=>(const CDATETIME&, const CDATETIME&) noexcept = default;

    /// ToLocalZone() converts from UTC to the process's local time, ToGMZone() back. A local time that occurs twice is
    /// taken as the earlier moment; one that is skipped is counted from the time before the gap. Dates outside the
    /// system's range use the offset of the nearest year in it.
    void ToLocalZone() noexcept;
    void ToGMZone() noexcept;

    /// "05032024 07:05:09", without a zone; "" for null.
    [[nodiscard]] std::string ToString() const;
    /// The value is taken as local time and written in UTC: "2024-03-05T07:05:09"; "" for null, and where UTC leads to
    /// a year that does not fit 16 bits.
    [[nodiscard]] std::string ToStringXML() const;
    /// Reads the text that ToString() writes for the years 0 to 9999. CDATE::FromStringLong() reads its date. "" gives
    /// the null date-time. Returns 1, or 0 and leaves the value unchanged; a null pointer gives 0.
    int FromString(const char* text) noexcept;
    /// Reads a date and, after "T", a time as CTIME::FromStringXML() reads it. Takes them as UTC and stores local time.
    /// "" gives the null date-time. Returns 1, or 0 and leaves the value unchanged; a null pointer gives 0.
    int FromStringXML(const char* text) noexcept;

private:
    [[nodiscard]] long long SecondsFrom1904() const noexcept;

    CDATE mDate;
    CTIME mTime;
};

static_assert(sizeof(CDATETIME) == 10 && alignof(CDATETIME) == 2);

/// Writes "CDATETIME(05032024 07:05:09)".
MLCORE_API std::ostream& operator<<(std::ostream& out, const CDATETIME& moment);

}  // namespace MLCore

template <>
struct std::hash<MLCore::CDATETIME> {
    std::size_t operator()(const MLCore::CDATETIME& moment) const noexcept {
        return std::hash<MLCore::CDATE>()(moment.GetDate()) * 86413U + std::hash<MLCore::CTIME>()(moment.GetTime());
    }
};
