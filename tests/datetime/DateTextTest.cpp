#include <MLCore/datetime/CDATE.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <sstream>
#include <string>

#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::Date;
using support::DAY;
using RESULT = std::optional<CDATE>;

// A second reader of the forms without a time, straight from their description, with the C library's own numbers.
namespace told {

int Number(const std::string& text) {
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<int>(
        std::clamp<long long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

RESULT Valid(int day, int month, int year) {
    const bool isDate = year >= 0 && year <= 32767 && day >= 1 && day <= support::MonthLength(month, year);
    return isDate ? RESULT(Date(day, month, year)) : std::nullopt;
}

RESULT Parts(const std::string& year, const std::string& month, const std::string& day) {
    const bool isDigits = (year + month + day).find_first_not_of("0123456789") == std::string::npos;
    return isDigits ? Valid(Number(day), Number(month), Number(year)) : std::nullopt;
}

RESULT Xml(std::string text) {
    text.resize(std::min<std::size_t>(text.size(), 255));
    const std::size_t first = text.find('-');
    const std::size_t second = first == text.npos ? text.npos : text.find('-', first + 1);
    return second == text.npos
               ? std::nullopt
               : Parts(text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1));
}

RESULT XmlOrCompact(const std::string& text) {
    const RESULT date = Xml(text);
    return date || text.size() != 8 ? date : Parts(text.substr(0, 4), text.substr(4, 2), text.substr(6));
}

RESULT Long(const std::string& text) {
    return text.size() < 8 ? std::nullopt
                           : Valid(Number(text.substr(0, 2)), Number(text.substr(2, 2)), Number(text.substr(4, 4)));
}

RESULT Short(const std::string& text) {
    if (text.size() < 6) {
        return std::nullopt;
    }
    const int year = Number(text.substr(4, 2));
    return Valid(Number(text.substr(0, 2)), Number(text.substr(2, 2)), year < 51 ? year + 2000 : year + 1900);
}

RESULT Any(std::string text) {
    for (int round = 0; round < 2; ++round) {
        for (const RESULT& date : {round == 0 ? Xml(text) : std::nullopt, Long(text), Short(text)}) {
            if (date) {
                return date;
            }
        }
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (text[at] == '/' || text[at] == '-') {
                text.erase(at, 1);
            }
        }
    }
    return std::nullopt;
}

}  // namespace told

struct PARSER {
    int (CDATE::*parse)(const char*) noexcept;
    int (*test)(const char*) noexcept;
    RESULT (*told)(std::string);
};

const PARSER kParsers[] = {
    {&CDATE::FromString, IsStrDate, told::Any},
    {&CDATE::FromStringLong, IsStrLDate, [](std::string text) { return told::Long(text); }},
    {&CDATE::FromStringShort, IsStrSDate, [](std::string text) { return told::Short(text); }},
    {&CDATE::FromStringXML, IsStrXMLDate, [](std::string text) { return told::XmlOrCompact(text); }},
};

const CDATE kBefore(7, 8, 1999);

// Parses by one parser, checks what holds for every text, and gives the date, or nothing when the text was refused.
RESULT Parse(const PARSER& parser, const char* text) {
    CDATE date = kBefore;
    const int result = (date.*parser.parse)(text);
    EXPECT_EQ(parser.test(text), result);
    EXPECT_TRUE(result == 1 ? date.IsDate() != 0 : result == 0 && date == kBefore);
    return result == 1 ? RESULT(date) : std::nullopt;
}

TEST(DateTextTest, WorkedTexts) {
    // Texts and what is read from each: nothing when it is refused.
    std::istringstream rows(
        "05032024>2024-03-05 050324>2024-03-05 05/03/2024>2024-03-05 05-03-2024>2024-03-05 2024-03-05>2024-03-05 "
        "5/3/2024>2024-03-05 050351>1951-03-05 050350>2050-03-05 32012024> 2024-02-30> 05//03/2024> 2024/03/05> "
        "20240305> 05-03-24>0005-03-24 240305>2005-03-24 20100305>0305-10-20 1/11/2024>0000-11-01 "
        "11/1/2024>2002-12-11 29022023>2020-02-29 1-2-3>0001-02-03 1-1-1->2001-01-01 05032024Tjunk>2024-03-05 "
        "2010-02-30>2000-10-20 2010-03-05T25:00:00>2000-10-20 2010-13-01>1999-10-20 1a022024>2024-02-01 "
        "32767-12-31>32767-12-31 32768-12-31> 4294969320-03-05> 0-1-1>0000-01-01 -1-1>0000-01-01 --> T> > ");
    for (std::string row; rows >> row;) {
        const std::string text = row.substr(0, row.find('>'));
        const RESULT date = Parse(kParsers[0], text.c_str());
        EXPECT_EQ(text + '>' + date.value_or(CDATE()).ToStringXML(), row);
        EXPECT_EQ(CDATE(text.c_str()), date.value_or(CDATE()));
    }
    const PARSER& xml = kParsers[3];
    EXPECT_EQ(Parse(xml, "20240305"), CDATE(5, 3, 2024));
    EXPECT_EQ(Parse(xml, "2024-03-05"), CDATE(5, 3, 2024));
    for (const char* const text : {"2010-02-30", "20240230", "2010-13-01", "05032024Tjunk", "2010-03-05T25:00:00",
                                   "2024-03-05 ", " 2024-03-05", "2024-03-05Z", "+2024-3-5", "", "2024-03"}) {
        EXPECT_EQ(Parse(xml, text), RESULT()) << text;
    }
    EXPECT_EQ(Parse(kParsers[1], "05032024, and more"), CDATE(5, 3, 2024));
    EXPECT_EQ(Parse(kParsers[1], "32012024"), RESULT());
    EXPECT_EQ(Parse(kParsers[1], "0503202"), RESULT());
    EXPECT_EQ(Parse(kParsers[2], "05032024"), CDATE(5, 3, 2020));
    for (const PARSER& parser : kParsers) {
        EXPECT_EQ(Parse(parser, nullptr), RESULT());
    }
}

TEST(DateTextTest, LongTexts) {
    // 255 characters are looked at, of the form that has no fixed length.
    const std::string zeros(246, '0');
    EXPECT_EQ(Parse(kParsers[3], ("2024-03-" + zeros + "5").c_str()), CDATE(5, 3, 2024));
    EXPECT_EQ(Parse(kParsers[3], ("2024-03-" + zeros + "59999").c_str()), CDATE(5, 3, 2024));
    EXPECT_EQ(Parse(kParsers[0], ("2024-03-" + zeros + "0005").c_str()), RESULT());
    EXPECT_EQ(Parse(kParsers[3], (zeros + "0000000002024-03-05").c_str()), RESULT());
    EXPECT_EQ(Parse(kParsers[1], ("05032024" + zeros + zeros).c_str()), CDATE(5, 3, 2024));
    for (const char character : {'9', '-', '/', 'T', ' ', '\xFF'}) {
        const std::string text(100000, character);
        for (const PARSER& parser : kParsers) {
            Parse(parser, text.c_str());
        }
    }
}

TEST(DateTextTest, RandomTextsAreReadAsDescribed) {
    std::mt19937 random(1904);
    const std::string alphabets[] = {"0123456789", "0123-/", "012-/ +a", "0123456789-/", "01239-/T:Z+. "};
    for (int i = 0; i < 300000; ++i) {
        const std::size_t kind = random() % (std::size(alphabets) + 1);
        std::string text(random() % (i % 1000 == 0 ? 400 : 13), ' ');
        for (char& character : text) {
            character = kind < std::size(alphabets) ? alphabets[kind][random() % alphabets[kind].size()]
                                                    : static_cast<char>(1 + random() % 255);
        }
        for (const PARSER& parser : kParsers) {
            const RESULT date = Parse(parser, text.c_str());
            if (text.find('T') == text.npos) {
                ASSERT_EQ(date, parser.told(text)) << '"' << text << '"';
            }
        }
        ASSERT_FALSE(HasFailure()) << '"' << text << '"';
    }
}

TEST(DateTextTest, WrittenTextsAreReadBack) {
    for (DAY day; day.year < 10000; day.Advance()) {
        if (day.year > 1800 && day.year < 2200 ? day.day % 5 != 0 : day.dayOfYear % 61 != 0) {
            continue;
        }
        const CDATE date = day.Date();
        ASSERT_EQ(Parse(kParsers[1], date.ToString().c_str()), date);
        ASSERT_EQ(Parse(kParsers[0], date.ToStringLong().c_str()), date);
        ASSERT_EQ(Parse(kParsers[3], date.ToStringXML().c_str()), date);
        ASSERT_EQ(Parse(kParsers[0], date.ToStringXML().c_str()), date);
        if (day.year > 1950 && day.year <= 2050) {
            ASSERT_EQ(Parse(kParsers[2], date.ToStringShort().c_str()), date);
        }
    }
}

TEST(DateTextTest, Formats) {
    const struct {
        CDATE date;
        const char* text;
        const char* shortText;
        const char* xml;
    } rows[] = {
        {{5, 3, 2024}, "05032024", "050324", "2024-03-05"},    {{}, "", "", ""},
        {{31, 12, 9999}, "31129999", "311299", "9999-12-31"},  {{1, 1, 0}, "01010000", "010100", "0000-01-01"},
        {{9, 10, 305}, "09100305", "091005", "0305-10-09"},    {{40, 13, 2024}, "31122024", "311224", "2024-12-31"},
        {{-3, 0, 2024}, "01012024", "010124", "2024-01-01"},   {{0, 0, 1}, "01010001", "010101", "0001-01-01"},
        {{1, 2, 12345}, "010212345", "010245", "12345-02-01"}, {{1, 2, -5}, "0102-0005", "0102-05", "-0005-02-01"}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.date.ToString(), row.text);
        EXPECT_EQ(row.date.ToStringLong(), row.text);
        EXPECT_EQ(row.date.ToStringShort(), row.shortText);
        EXPECT_EQ(row.date.ToStringXML(), row.xml);
    }
}

}  // namespace
