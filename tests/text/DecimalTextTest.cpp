#include <MLCore/text/DecimalText.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace MLCore;

TEST(DecimalTextTest, IsDigits) {
    EXPECT_TRUE(IsDigits(""));
    EXPECT_TRUE(IsDigits("00000000000000000000000000"));
    for (int character = 0; character < 256; ++character) {
        const std::string text = {'1', static_cast<char>(character)};
        EXPECT_EQ(IsDigits(text), character >= '0' && character <= '9' ? 1 : 0) << character;
    }
}

TEST(DecimalTextTest, LeadingIntegerIsThatOfTheCLibraryButStopsAtTheRange) {
    for (const char* const text : {"", "- 5", "+-5", "x1", "-", "\xA0 1"}) {
        EXPECT_EQ(LeadingInteger(text), 0) << text;
    }
    EXPECT_EQ(LeadingInteger(" \t\n\v\f\r+7x"), 7);
    EXPECT_EQ(LeadingInteger("2147483647"), INT_MAX);
    EXPECT_EQ(LeadingInteger("-2147483647"), -INT_MAX);
    for (const std::string text : {"2147483648", "2147483649", "18446744073709551617"}) {
        EXPECT_EQ(LeadingInteger(text), INT_MAX) << text;
        EXPECT_EQ(LeadingInteger('-' + text), INT_MIN) << text;
    }
    EXPECT_EQ(LeadingInteger(std::string(100000, '9')), INT_MAX);
    EXPECT_EQ(LeadingInteger("-" + std::string(100000, '0') + "8"), -8);
    EXPECT_EQ(LeadingInteger(std::string("1") + '\0' + "2"), 1);
    EXPECT_EQ(LeadingInteger(std::string_view("1234", 2)), 12);
    support::RANDOM random(12);
    const std::string characters = "0123456789999 +-\tx";
    for (int i = 0; i < 50000; ++i) {
        std::string text(random() % 15, ' ');
        for (char& character : text) {
            character = i % 5 != 0 ? characters[random() % characters.size()] : static_cast<char>(1 + random() % 127);
        }
        const long long value = std::strtoll(text.c_str(), nullptr, 10);
        ASSERT_EQ(LeadingInteger(text), std::clamp<long long>(value, INT_MIN, INT_MAX)) << text;
    }
}

TEST(DecimalTextTest, AppendPaddedIsThatOfTheCLibrary) {
    for (const long long value : {0LL, 5LL, -5LL, 99LL, 100LL, -100LL, 2024LL, LLONG_MAX, LLONG_MIN, LLONG_MIN + 1}) {
        for (const int digits : {INT_MIN, -3, 1, 2, 4, 19, 20, 40}) {
            char expected[64];
            std::snprintf(expected, sizeof expected, "%.*lld", digits, value);
            std::string text = "before ";
            AppendPadded(text, value, digits);
            EXPECT_EQ(text, std::string("before ") + expected);
        }
    }
}

}  // namespace
