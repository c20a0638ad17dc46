// Texts of times and date-times: each is read as the plain rules say, and comes back.
#include <MLCore/datetime/CDATETIME.h>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;

/// The seconds of HH:MM:SS or HHMMSS; -1 for any other text, 0 for the empty one.
long PlainTime(std::string text) {
    if (text.size() == 8 && text[2] == ':' && text[5] == ':')
        text.erase(5, 1).erase(2, 1);
    else if (text.size() == 8)
        return -1;
    if (text.empty()) return 0;
    if (text.size() != 6 || text.find_first_not_of("0123456789") != text.npos) return -1;
    const long parts = std::stol(text), h = parts / 10000, m = parts / 100 % 100, s = parts % 100;
    return h < 24 && m < 60 && s < 60 ? h * 3600 + m * 60 + s : -1;
}

/// A text that is read gives a valid time, which comes back from its own text; any other text changes nothing.
void Property(INPUT input) {
    const std::string bytes = input.Rest(), text = bytes.c_str();
    const CTIME before(1, 2, 3);
    const CDATETIME momentBefore(CDATE(7, 8, 1999), before);
    const long plain = PlainTime(text);
    CTIME time = before, xml = before, back;
    FUZZ_REQUIRE(time.FromString(text.c_str()) == (plain >= 0 ? 1 : 0) && IsStrTime(text.c_str()) == (plain >= 0));
    FUZZ_REQUIRE(time.GetTotalSeconds() == (plain >= 0 ? plain : before.GetTotalSeconds()));
    FUZZ_REQUIRE(back.FromString(time.ToString().c_str()) == 1 && back == time);

    const int isXml = xml.FromStringXML(text.c_str());
    FUZZ_REQUIRE(isXml == 0 ? xml == before : isXml == 1 && xml.IsTime() != 0);
    FUZZ_REQUIRE(plain < 0 || xml == time);
    FUZZ_REQUIRE(back.FromStringXML((time.ToString() + "Z").c_str()) == 1 && back == time);

    CDATETIME moment = momentBefore, again;
    const int isMoment = moment.FromString(text.c_str());
    FUZZ_REQUIRE(isMoment == 0 ? moment == momentBefore : isMoment == 1 && moment.IsDateTime() == !text.empty());
    FUZZ_REQUIRE(again.FromString(moment.ToString().c_str()) == 1 && again == moment);

    moment = momentBefore;
    const int isXmlMoment = moment.FromStringXML(text.c_str());
    FUZZ_REQUIRE(isXmlMoment == 0 ? moment == momentBefore : isXmlMoment == 1 && moment.IsDateTime() == !text.empty());
    // The local time and its date are what the two types read of it for themselves.
    const bool isPlainText = text.find('T') == text.rfind('T');  // of two, the date takes the first for the time's
    if (isXmlMoment == 1 && !text.empty() && isPlainText) {
        CDATE date;
        FUZZ_REQUIRE(isXml == 1 && xml == moment.GetTime());
        FUZZ_REQUIRE(date.FromStringXML(text.c_str()) == 1 && date == moment.GetDate());
    }
    FUZZ_REQUIRE(again.FromStringXML(moment.ToStringXML().c_str()) == 1 && again == moment);
}

const TARGET kTarget("TimeText", Property);

}  // namespace
