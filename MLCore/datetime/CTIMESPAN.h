#pragma once

#include <MLCore/platform/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

namespace MLCore {

/// A signed span of time in whole seconds: the distance between two date-times. A value type of 8 bytes. Nothing fails;
/// only texts take memory. A sum that does not fit 64 bits is the longest span of its sign.
///
///     CTIMESPAN span(90 * 60);               // seconds
///     span += CTIMESPAN(9);
///     std::string text = span.ToString();    // "1:30:09"
class MLCORE_API CTIMESPAN {
public:
    constexpr CTIMESPAN() noexcept = default;
    constexpr explicit CTIMESPAN(long long seconds) noexcept : mSeconds(seconds) {}

    static constexpr short NbSecondsInOneMinute() noexcept { return 60; }
    static constexpr short NbSecondsInOneHour() noexcept { return 60 * 60; }
    static constexpr long NbSecondsInOneDay() noexcept { return 3600L * 24L; }

    [[nodiscard]] constexpr long long GetTotalSeconds() const noexcept { return mSeconds; }
    /// The parts that ToString() writes, each with the sign of the span; minutes and seconds lie within -59..59.
    [[nodiscard]] constexpr long long GetHours() const noexcept { return mSeconds / 3600; }
    [[nodiscard]] constexpr short GetMinutes() const noexcept { return static_cast<short>(mSeconds % 3600 / 60); }
    [[nodiscard]] constexpr short GetSeconds() const noexcept { return static_cast<short>(mSeconds % 60); }
    /// Replaces one part; the others keep their values and their sign. A part may exceed its usual range and then
    /// carries over.
    void SetHours(long hours) noexcept;
    void SetMinutes(long minutes) noexcept;
    void SetSeconds(long seconds) noexcept;

    CTIMESPAN& operator+=(const CTIMESPAN& other) noexcept;
    CTIMESPAN& operator-=(const CTIMESPAN& other) noexcept;
    friend CTIMESPAN operator+(CTIMESPAN left, const CTIMESPAN& right) noexcept { return left += right; }
    friend CTIMESPAN operator-(CTIMESPAN left, const CTIMESPAN& right) noexcept { return left -= right; }
    CTIMESPAN operator-() const noexcept { return CTIMESPAN() -= *this; }

    friend constexpr bool operator==(const CTIMESPAN&, const CTIMESPAN&) noexcept = default;
    friend constexpr std::strong_ordering operator<=>(const CTIMESPAN&, const CTIMESPAN&) noexcept = default;

    /// Hours, minutes and seconds as "7:05:09", "125:00:00", "-0:05:00": the sign first, then the hours without leading
    /// zeros.
    [[nodiscard]] std::string ToString() const;

private:
    long long mSeconds = 0;
};

/// Writes "CTIMESPAN(7:05:09)".
MLCORE_API std::ostream& operator<<(std::ostream& out, const CTIMESPAN& span);

}  // namespace MLCore

template <>
struct std::hash<MLCore::CTIMESPAN> {
    std::size_t operator()(const MLCore::CTIMESPAN& span) const noexcept {
        return std::hash<long long>()(span.GetTotalSeconds());
    }
};
