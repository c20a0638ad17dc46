/// Texts of times, as the parsers of the date, the time and the date-time read them. A reader returns false, and leaves
/// the time unchanged, where the text is not a time of its form.
#pragma once

#include <MLCore/datetime/CTIME.h>

#include <string_view>

namespace MLCore::timetext {

/// As CTIME::FromString().
[[nodiscard]] bool ReadPlain(std::string_view text, CTIME& time) noexcept;
/// As CTIME::FromStringXML().
[[nodiscard]] bool ReadXml(std::string_view text, CTIME& time) noexcept;
/// As CTIME::FromStringXML(), without a date before the time.
[[nodiscard]] bool ReadXmlTime(std::string_view text, CTIME& time) noexcept;

}  // namespace MLCore::timetext
