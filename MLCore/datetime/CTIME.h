#pragma once

#include <MLCore/datetime/CTIMESPAN.h>
#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>

namespace MLCore {

/// The parts of a CTIME as a plain record.
struct MLTIME {
    std::int16_t seconds;
    std::int16_t minutes;
    std::int16_t hours;
};

// Two-byte alignment, so that a date-time is 10 bytes in memory as it is in streams.
#pragma pack(push, 2)

/// A time of day in whole seconds since midnight, without a zone. A value type of 4 bytes. Nothing fails; only texts
/// take memory.
///
///     CTIME time(23, 30, 0);                  // hours, minutes, seconds
///     time += 3600;                           // 00:30:00: arithmetic wraps around midnight
///     std::string text = time.ToString();     // "00:30:00"
///     int isRead = time.FromString("24:00");  // 0, and the time is unchanged: parsers return 1 or 0
///
/// The result of arithmetic always lies within a day. Only the constructor and the setters take parts as they are, in
/// range or not; IsTime() says whether the time is within a day.
class MLCORE_API CTIME {
public:
    /// 00:00:00.
    constexpr CTIME() noexcept = default;
    /// Stores hours * 3600 + minutes * 60 + seconds, unchecked.
    constexpr CTIME(std::int16_t hours, std::int16_t minutes, std::int16_t seconds) noexcept {
        Set(hours, minutes, seconds);
    }
    /// Takes wHour, wMinute and wSecond.
    explicit CTIME(const _SYSTEMTIME& time) noexcept;
    /// The time of day of an OLE Automation date, to the nearest second; 00:00:00 for 0.0 and for a number that is not
    /// such a date.
    explicit CTIME(double oleDate) noexcept;
    /// Calls FromString(); 00:00:00 when that fails.
    explicit CTIME(const char* text) noexcept;

    [[nodiscard]] static const CTIME& Min() noexcept;   ///< 00:00:00
    [[nodiscard]] static const CTIME& Max() noexcept;   ///< 23:59:59
    [[nodiscard]] static const CTIME& Null() noexcept;  ///< 00:00:00
    [[nodiscard]] static const CTIME& NullTime() noexcept { return Null(); }
    /// The present time in the local zone.
    [[nodiscard]] static CTIME Now() noexcept;

    /// The parts; negative when the time is, which only the constructor and the setters can cause.
    [[nodiscard]] constexpr std::int16_t GetHours() const noexcept;
    [[nodiscard]] constexpr std::int16_t GetMinutes() const noexcept;
    [[nodiscard]] constexpr std::int16_t GetSeconds() const noexcept;
    /// Replace one part and keep the two others; unchecked, as the constructor.
    constexpr void SetHours(std::int16_t hours) noexcept { Set(hours, GetMinutes(), GetSeconds()); }
    constexpr void SetMinutes(std::int16_t minutes) noexcept { Set(GetHours(), minutes, GetSeconds()); }
    constexpr void SetSeconds(std::int16_t seconds) noexcept { Set(GetHours(), GetMinutes(), seconds); }
    constexpr void Set(std::int16_t hours, std::int16_t minutes, std::int16_t seconds) noexcept {
        mSeconds = hours * 3600 + minutes * 60 + seconds;
    }

    /// 1 at 00:00:00.
    [[nodiscard]] constexpr int IsNull() const noexcept { return mSeconds == 0 ? 1 : 0; }
    /// 1 when the value lies within a day, 0..86399 seconds.
    [[nodiscard]] constexpr int IsTime() const noexcept { return mSeconds >= 0 && mSeconds < 86400 ? 1 : 0; }
    /// 1 at 23:59:59 only.
    [[nodiscard]] constexpr int IsEndOfDay() const noexcept { return mSeconds == 86399 ? 1 : 0; }

    /// Sets the time to `seconds` modulo a day. Returns 1 when `seconds` is below 86400 and 0 otherwise; a negative
    /// number wraps and still returns 1, which is intended.
    int FromSeconds(long seconds) noexcept;
    /// FromSeconds() of the whole seconds in `minutes`, rounded down. NaN, infinity and a number that is infinite as
    /// seconds return 0 and change nothing.
    int FromMinutes(double minutes) noexcept;
    /// FromMinutes() of 60 minutes an hour.
    int FromHours(double hours) noexcept;

    CTIME& operator+=(long seconds) noexcept;
    CTIME& operator-=(long seconds) noexcept;
    CTIME& operator+=(const CTIMESPAN& span) noexcept;
    CTIME& operator-=(const CTIMESPAN& span) noexcept;
    friend CTIME operator+(CTIME time, long seconds) noexcept { return time += seconds; }
    friend CTIME operator-(CTIME time, long seconds) noexcept { return time -= seconds; }
    friend CTIME operator+(long seconds, CTIME time) noexcept { return time += seconds; }
    friend CTIME operator+(CTIME time, const CTIMESPAN& span) noexcept { return time += span; }
    friend CTIME operator-(CTIME time, const CTIMESPAN& span) noexcept { return time -= span; }
    CTIME& operator++() noexcept { return *this += 1L; }
    CTIME& operator--() noexcept { return *this -= 1L; }
    CTIME operator++(int) noexcept;
    CTIME operator--(int) noexcept;
    /// Adds any number of units, negative ones too, and wraps around midnight.
    CTIME& AddSeconds(long seconds) noexcept { return *this += seconds; }
    CTIME& AddMinutes(long minutes) noexcept;
    CTIME& AddHours(long hours) noexcept;

    /// This time minus the other one, negative when this one is earlier. The difference in minutes ignores the seconds,
    /// the one in hours ignores minutes and seconds: 08:59:59 against 10:00:00 is -2 hours.
    [[nodiscard]] long ComputeSeconds(const CTIME& other) const noexcept;
    [[nodiscard]] long ComputeMinutes(const CTIME& other) const noexcept;
    [[nodiscard]] long ComputeHours(const CTIME& other) const noexcept;

    friend constexpr bool operator==(const CTIME& left, const CTIME& right) noexcept {
        return left.mSeconds == right.mSeconds;
    }
    friend constexpr std::strong_ordering operator<=>(const CTIME& left, const CTIME& right) noexcept {
        return left.GetTotalSeconds() <=> right.GetTotalSeconds();
    }

    /// Seconds since midnight; outside 0..86399 where parts out of range were set.
    [[nodiscard]] constexpr std::int32_t GetTotalSeconds() const noexcept { return mSeconds; }
    [[nodiscard]] constexpr double ToDecimalHours() const noexcept { return mSeconds / 3600.0; }
    [[nodiscard]] constexpr double ToDecimalMinutes() const noexcept { return mSeconds / 60.0; }
    operator MLTIME() const noexcept;
    /// "07:05:09".
    [[nodiscard]] std::string ToString() const;
    /// The time on 30 December 1899, the day zero of OLE Automation; wDayOfWeek and the milliseconds are 0.
    /// <MLCore/platform/WinTypes.h> completes the type.
    [[nodiscard]] _SYSTEMTIME ToSystemTime() const noexcept;
    /// The OLE Automation date of that day and time: the fraction of a day. 0.0 when the system refuses the time.
    [[nodiscard]] double ToWDate() const noexcept;

    /// Reads exactly HH:MM:SS or HHMMSS; hours to 23, minutes and seconds to 59. "" gives 00:00:00. Returns 1, or 0 and
    /// leaves the time unchanged; null gives 0.
    int FromString(const char* text) noexcept;
    /// Reads an XML time, HH:MM:SS with an optional fraction and zone: "Z", "+hh:mm" or "-hh:mm"; or HHMMSS with an
    /// optional "Z". A fraction ends at the zone; only its first character is checked, and all of it is dropped. ""
    /// gives 00:00:00. Returns 1, or 0 and leaves the time unchanged; null gives 0.
    ///
    /// A zone offset is *applied with its own sign*: 10:00:00+02:00 gives 12:00:00. That is the reverse of converting
    /// local time to UTC, and it is intended. The result wraps around midnight; a date before the time stays the same.
    /// The compact format takes no numeric offset.
    ///
    /// After a date and "T" ("2024-03-05T23:30:00") the result is taken as UTC on that date and converted to local
    /// time.
    int FromStringXML(const char* text) noexcept;

private:
    // FromSeconds() of the whole span.
    explicit CTIME(const CTIMESPAN& span) noexcept;

    std::int32_t mSeconds = 0;
};

#pragma pack(pop)

static_assert(sizeof(CTIME) == 4 && alignof(CTIME) == 2);

constexpr std::int16_t CTIME::GetHours() const noexcept { return static_cast<std::int16_t>(mSeconds % 86400 / 3600); }

constexpr std::int16_t CTIME::GetMinutes() const noexcept { return static_cast<std::int16_t>(mSeconds % 3600 / 60); }

constexpr std::int16_t CTIME::GetSeconds() const noexcept { return static_cast<std::int16_t>(mSeconds % 60); }

/// Each returns a moved copy of the time.

[[nodiscard]] inline CTIME AddSeconds(CTIME time, long seconds) noexcept { return time.AddSeconds(seconds); }
[[nodiscard]] inline CTIME AddMinutes(CTIME time, long minutes) noexcept { return time.AddMinutes(minutes); }
[[nodiscard]] inline CTIME AddHours(CTIME time, long hours) noexcept { return time.AddHours(hours); }

/// 1 when CTIME::FromString() reads the text; 0 for null.
[[nodiscard]] MLCORE_API int IsStrTime(const char* text) noexcept;

/// Writes "CTIME(7,5,9)".
MLCORE_API std::ostream& operator<<(std::ostream& out, const CTIME& time);

}  // namespace MLCore

template <>
struct std::hash<MLCore::CTIME> {
    std::size_t operator()(const MLCore::CTIME& time) const noexcept {
        return std::hash<std::int32_t>()(time.GetTotalSeconds());
    }
};
