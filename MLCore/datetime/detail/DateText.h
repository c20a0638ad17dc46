/// Texts of dates, as the parsers of the date, the time and the date-time read them. A reader returns false, and leaves
/// the date unchanged, where the text is not a valid date of its form.
#pragma once

#include <MLCore/datetime/CDATE.h>

#include <string_view>

namespace MLCore::datetext {

/// As CDATE::FromString().
[[nodiscard]] bool ReadAny(std::string_view text, CDATE& date) noexcept;
/// As CDATE::FromStringLong().
[[nodiscard]] bool ReadLong(std::string_view text, CDATE& date) noexcept;
/// As CDATE::FromStringShort().
[[nodiscard]] bool ReadShort(std::string_view text, CDATE& date) noexcept;
/// As CDATE::FromStringXML().
[[nodiscard]] bool ReadXml(std::string_view text, CDATE& date) noexcept;

}  // namespace MLCore::datetext
