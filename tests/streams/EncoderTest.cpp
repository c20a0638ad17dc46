#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CNULLENCODER.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <algorithm>
#include <regex>
#include <vector>

TEST(EncoderTest, GivesBackWhatItEncodedButForRunsOfQuotes) {
    // a text, what it is encoded to, and what else is decoded to it
    const std::vector<std::string> rows[] = {{"", "", "\"\""},
                                             {"two\r\nlines, a\ttab and 'so'", "two\r\nlines, a\ttab and 'so'"},
                                             {"a;b", "\"a;b\"", "a;b"},
                                             {"say \"hi\"", "\"say \"\"hi\"\"\""},
                                             {"\"", "\"\"\"\"", "\"", "\"\"\""},
                                             {"a\"b", "\"a\"\"b\"", "a\"\"\"\"b", "a\"b"},
                                             {"a\"", "\"a\"\"\"", "a\"", "\"a\"\""}};
    MLCore::CCSVENCODER csv;
    for (const auto& row : rows) {
        EXPECT_EQ(csv.Encode(row[0]), row[1]);
        for (std::size_t i = 1; i < row.size(); ++i) {
            EXPECT_EQ(csv.Decode(row[i]), row[0]) << row[i];
        }
    }
    MLCore::CNULLENCODER null;
    support::RANDOM random(34);
    for (int i = 0; i < 2000; ++i) {
        std::string text(random() % 12, ' ');
        std::generate(text.begin(), text.end(), [&random] { return "\"\";a\r\n\0"[random() % 7]; });
        EXPECT_EQ(csv.Decode(csv.Encode(text)), std::regex_replace(text, std::regex("\"+"), "\"")) << text;
        EXPECT_EQ(null.Encode(text) + null.Decode(text), text + text);
    }
}
