#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>

#include <support/Random.h>
#include "support/CalendarArithmetic.h"

namespace {

using namespace MLCore;
using support::DAY;
using RESULT = std::optional<CDATE>;

enum KIND { Any, Long, Short, Xml };

const struct {
    int (CDATE::*parse)(const char*) noexcept;
    int (*test)(const char*) noexcept;
} kParsers[] = {{&CDATE::FromString, IsStrDate},
                {&CDATE::FromStringLong, IsStrLDate},
                {&CDATE::FromStringShort, IsStrSDate},
                {&CDATE::FromStringXML, IsStrXMLDate}};

const CDATE kBefore(7, 8, 1999);

// Parses by one parser, checks what holds for every text, and gives the date, or nothing when the text was refused.
RESULT Parse(int kind, const char* text) {
    CDATE date = kBefore;
    const int result = (date.*kParsers[kind].parse)(text);
    EXPECT_EQ(kParsers[kind].test(text), result);
    if (result == 1) {
        EXPECT_TRUE(date.IsDate()) << text;
        return date;
    }
    EXPECT_EQ(result, 0) << text;
    EXPECT_EQ(date, kBefore) << text;
    return std::nullopt;
}
RESULT Parse(int kind, const std::string& text) { return Parse(kind, text.c_str()); }

TEST(DateTextTest, WorkedTexts) {
    // Texts and what is read from each: nothing when it is refused.
    const char* const kRows[] = {
        "05032024>2024-03-05,050324>2024-03-05,05/03/2024>2024-03-05,05-03-2024>2024-03-05,2024-03-05>2024-03-05,"
        "5/3/2024>2024-03-05,050351>1951-03-05,050350>2050-03-05,32012024>,2024-02-30>,05//03/2024>,2024/03/05>,"
        "20240305>,05-03-24>0005-03-24,240305>2005-03-24,20100305>0305-10-20,1/11/2024>0000-11-01,"
        "11/1/2024>2002-12-11,29022023>2020-02-29,1-2-3>0001-02-03,1-1-1->2001-01-01,05032024Tjunk>2024-03-05,"
        "2010-02-30>2000-10-20,2010-03-05T25:00:00>2000-10-20,2010-13-01>1999-10-20,1a022024>2024-02-01,"
        "32767-12-31>32767-12-31,32768-12-31>,4294969320-03-05>,0-1-1>0000-01-01,-1-1>0000-01-01,-->,T>,>,+5 32024>"
        "2024-03-05, "
        "5+32024>2024-03-05,0503-001>2000-03-05,05/03/-001>2000-03-05,05/03/24>2024-03-05,050300>2000-03-05,"
        "05-/03-/24>,29021900>",
        "05032024>2024-03-05,05032024 and more>2024-03-05,32012024>,0503202>,1a 22024>2024-02-01,31129999>9999-12-31,"
        "29021900>,29022000>2000-02-29,0503-001>,+5-32024>,>,00032024>,05002024>,05132024>",
        "05032024>2020-03-05,050324>2024-03-05,05032>,050351>1951-03-05,050350>2050-03-05,0503-1>1999-03-05,290223>,"
        "290200>2000-02-29,050399x>1999-03-05,>",
        "20240305>2024-03-05,2024-03-05>2024-03-05,2010-02-30>,20240230>,2010-13-01>,05032024Tjunk>,"
        "2010-03-05T25:00:00>,2024-03-05 >, 2024-03-05>,2024-03-05Z>,+2024-3-5>,>,2024-03>,2024-3-5-1>,2024--5>,"
        "2024-3-5>2024-03-05,202403051>,2024030>,5-3-2024>,00000101>0000-01-01,0-000001-0001>0000-01-01,2024+305>"};
    for (const int kind : {Any, Long, Short, Xml}) {
        std::istringstream rows(kRows[kind]);
        for (std::string row; std::getline(rows, row, ',');) {
            const std::string text = row.substr(0, row.find('>'));
            const RESULT date = Parse(kind, text);
            EXPECT_EQ(text + '>' + date.value_or(CDATE()).ToStringXML(), row) << kind;
            EXPECT_TRUE(kind != Any || CDATE(text.c_str()) == date.value_or(CDATE())) << row;
        }
        EXPECT_EQ(Parse(kind, nullptr), RESULT());
        for (const char character : {'9', '-', '/', 'T', ' ', '\xFF'}) {
            Parse(kind, std::string(100000, character));
        }
    }
    // 255 characters are looked at, of the form that has no fixed length.
    const std::string zeros(246, '0');
    EXPECT_EQ(Parse(Xml, "2024-03-" + zeros + "59999"), CDATE(5, 3, 2024));
    EXPECT_EQ(Parse(Any, "2024-03-" + zeros + "0005"), RESULT());
    EXPECT_EQ(Parse(Xml, zeros + "0000000002024-03-05"), RESULT());
    EXPECT_EQ(Parse(Long, "05032024" + zeros + zeros), CDATE(5, 3, 2024));
}

// The form with dashes is tried first, then the long one and the short one, then these two without the separators, of
// which each keeps the character after it.
TEST(DateTextTest, RandomTextsAreReadInTheOrderOfTheForms) {
    support::RANDOM random(1904);
    const std::string alphabets[] = {"0123456789", "0123-/", "012-/ +a", "0123456789-/", "01239-/T:Z+. "};
    for (int i = 0; i < 100000; ++i) {
        const std::string& alphabet = alphabets[random() % std::size(alphabets)];
        std::string text(random() % (i % 1000 == 0 ? 400 : 13), ' ');
        for (char& character : text) {
            character = i % 6 != 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(1 + random() % 255);
        }
        const RESULT read = Parse(Any, text);
        RESULT expected = text.find('-') == text.npos ? RESULT() : Parse(Xml, text);
        for (int round = 0; round < 2; ++round) {
            for (const KIND form : {Long, Short}) {
                expected = expected ? expected : Parse(form, text);
            }
            for (std::size_t at = 0; at < text.size() && round == 0 && !expected; ++at) {
                text.erase(at, text[at] == '/' || text[at] == '-' ? 1 : 0);
            }
        }
        ASSERT_EQ(read, expected) << '"' << text << '"';
        ASSERT_FALSE(HasFailure()) << '"' << text << '"';
    }
}

TEST(DateTextTest, WrittenTextsAreReadBack) {
    for (DAY day; day.year < 10000; day.Advance()) {
        if (day.year > 1900 && day.year < 2100 ? day.day % 5 != 0 : day.dayOfYear % 61 != 0) {
            continue;
        }
        const CDATE date = day.Date();
        ASSERT_EQ(Parse(Long, date.ToString()), date) << date;
        ASSERT_EQ(Parse(Any, date.ToStringLong()), date) << date;
        ASSERT_EQ(Parse(Xml, date.ToStringXML()), date) << date;
        ASSERT_EQ(Parse(Any, date.ToStringXML()), date) << date;
        const bool hasShortForm = day.year > 1950 && day.year <= 2050;
        ASSERT_TRUE(!hasShortForm || Parse(Short, date.ToStringShort()) == date) << date;
    }
    const struct {
        CDATE date;
        const char *text, *shortText, *xml;
    } rows[] = {
        {{5, 3, 2024}, "05032024", "050324", "2024-03-05"},    {{}, "", "", ""},
        {{31, 12, 9999}, "31129999", "311299", "9999-12-31"},  {{1, 1, 0}, "01010000", "010100", "0000-01-01"},
        {{9, 10, 305}, "09100305", "091005", "0305-10-09"},    {{40, 13, 2024}, "31122024", "311224", "2024-12-31"},
        {{-3, 0, 2024}, "01012024", "010124", "2024-01-01"},   {{0, 0, 1}, "01010001", "010101", "0001-01-01"},
        {{1, 2, 12345}, "010212345", "010245", "12345-02-01"}, {{1, 2, -5}, "0102-0005", "0102-05", "-0005-02-01"}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.date.ToString(), row.text) << row.text;
        EXPECT_EQ(row.date.ToStringLong(), row.text) << row.text;
        EXPECT_EQ(row.date.ToStringShort(), row.shortText);
        EXPECT_EQ(row.date.ToStringXML(), row.xml);
    }
}

}  // namespace
