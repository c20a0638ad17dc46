/// The fixed layouts of date texts.
#pragma once

#include <cstdint>

namespace MLCore {

#pragma pack(push, 1)

struct CDATEFORMAT {
    enum ORDER : std::int32_t { MonthDayYear = 0, DayMonthYear = 1, YearMonthDay = 2 };
    static constexpr int kOrderCount = YearMonthDay + 1;

    ORDER order;
    char separator;  // 0: none
    std::int32_t yearDigits;
};

#pragma pack(pop)

static_assert(sizeof(CDATEFORMAT) == 9);

inline constexpr CDATEFORMAT XmlFormat = {CDATEFORMAT::YearMonthDay, '-', 4};
inline constexpr CDATEFORMAT XmlCompactFormat = {CDATEFORMAT::YearMonthDay, '\0', 4};
inline constexpr CDATEFORMAT LongFormat = {CDATEFORMAT::DayMonthYear, '\0', 4};
inline constexpr CDATEFORMAT ShortFormat = {CDATEFORMAT::DayMonthYear, '\0', 2};

}  // namespace MLCore
