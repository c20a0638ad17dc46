// Texts of dates: each is read as the plain rules of its form say.
#include <MLCore/datetime/CDATE.h>
#include <support/CalendarArithmetic.h>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;

struct FORM {
    int (CDATE::*read)(const char*);
    int (*isDate)(const char*);
    std::string (CDATE::*write)() const;
    int firstYear, lastYear;  // that its text can hold
};
const FORM kForms[] = {{&CDATE::FromString, IsStrDate, &CDATE::ToString, 0, 9999},
                       {&CDATE::FromStringLong, IsStrLDate, &CDATE::ToStringLong, 0, 9999},
                       {&CDATE::FromStringShort, IsStrSDate, &CDATE::ToStringShort, 1951, 2050},
                       {&CDATE::FromStringXML, IsStrXMLDate, &CDATE::ToStringXML, 0, 32767}};

/// The date of YYYY-MM-DD or YYYYMMDD, all of digits; null for any other text.
CDATE PlainDate(const std::string& text) {
    constexpr std::string_view kLayouts[] = {"yyyy-mm-dd", "yyyymmdd"};
    for (const std::string_view layout : kLayouts) {
        int numbers[26] = {};
        bool fits = text.size() == layout.size();
        for (std::size_t at = 0; fits && at < text.size(); ++at) {
            const bool isDigit = text[at] >= '0' && text[at] <= '9';
            fits = layout[at] == '-' ? text[at] == '-' : isDigit;
            if (layout[at] != '-') {
                int& number = numbers[layout[at] - 'a'];
                number = number * 10 + (text[at] - '0');
            }
        }
        const int day = numbers['d' - 'a'], month = numbers['m' - 'a'], year = numbers['y' - 'a'];
        if (fits && day >= 1 && day <= support::MonthLength(month, year)) return support::Date(day, month, year);
    }
    return {};
}

/// A text that is read gives a valid date, which comes back from its own text; any other text changes nothing.
void Property(INPUT input) {
    const std::string bytes = input.Rest(), text = bytes.c_str();
    const CDATE before(7, 8, 1999), plain = PlainDate(text);
    for (const FORM& form : kForms) {
        CDATE date = before, back;
        const int isRead = (date.*form.read)(text.c_str());
        FUZZ_REQUIRE(isRead == form.isDate(text.c_str()));
        FUZZ_REQUIRE(isRead == 0 ? date == before : isRead == 1 && date.IsDate() != 0);
        const std::string own = (date.*form.write)();
        if (date.GetYear() >= form.firstYear && date.GetYear() <= form.lastYear) {
            FUZZ_REQUIRE((back.*form.read)(own.c_str()) == 1 && back == date);
        }
    }
    CDATE xml;
    xml.FromStringXML(text.c_str());
    FUZZ_REQUIRE(!plain ? text.find_first_of("T-") != text.npos || !xml : xml == plain);
    FUZZ_REQUIRE(!CDATE(text.c_str()) == (IsStrDate(text.c_str()) == 0));
    // A time and its zone lead to a neighbouring day at most.
    const std::size_t separator = text.find('T');
    if (CDATE date; separator != text.npos && !!xml && date.FromStringXML(text.substr(0, separator).c_str()) != 0) {
        FUZZ_REQUIRE(xml.ComputeDays(date) <= 1);
    }
}

const TARGET kTarget("DateText", Property);

}  // namespace
