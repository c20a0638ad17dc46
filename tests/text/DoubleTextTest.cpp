#include <MLCore/text/DecimalText.h>
#include <MLCore/text/DoubleText.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using namespace MLCore;

std::string TextOf(double value) {
    char buffer[kDoubleTextSize];
    const int length = lftoa(value, buffer, sizeof(buffer));
    std::string appended("x");
    AppendDouble(appended, value);
    EXPECT_EQ(std::string_view(appended).substr(1), std::string_view(buffer, static_cast<std::size_t>(length)));
    return buffer;
}

std::string FloatText(float value) {
    std::string text;
    AppendFloat(text, value);
    return text;
}

// The same bits, or both no numbers.
bool AreSame(double left, double right) {
    return std::isnan(left) ? std::isnan(right)
                            : std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

TEST(DoubleTextTest, NumbersStandInTheirShortestForm) {
    std::istringstream texts(
        "0 -0 1 -2.5 0.1 0.30000000000000004 100000 123456.789 9007199254740992 10000000000000000 1e+17 1e+22 0.00001 "
        "9.9e-06 1.5e-07 -2.2250738585072014e-308 5e-324 1.7976931348623157e+308 inf -inf nan");
    for (std::string text; texts >> text;) {
        EXPECT_EQ(TextOf(std::strtod(text.c_str(), nullptr)), text);
    }
    EXPECT_EQ(TextOf(-std::nan("")), "nan");
    texts = std::istringstream("0.1 16777216 99999992 1e+09 3.4028235e+38 0.00001 -1e-45");
    for (std::string text; texts >> text;) {
        EXPECT_EQ(FloatText(std::strtof(text.c_str(), nullptr)), text);
    }
}

TEST(DoubleTextTest, WhatDoesNotFitIsNotWritten) {
    char buffer[] = "####";
    EXPECT_EQ(lftoa(-2.5, buffer, 4), 0);
    EXPECT_EQ(std::string_view(buffer, 5), std::string_view("\0###\0", 5));
    EXPECT_EQ(lftoa(2.5, buffer, 4), 3);
    EXPECT_EQ(lftoa(1, buffer, 0), 0);
    EXPECT_EQ(lftoa(1, nullptr, 9), 0);
    EXPECT_STREQ(buffer, "2.5");
}

TEST(DoubleTextTest, EveryNumberIsReadBack) {
    support::RANDOM64 random(64);
    for (int i = 0; i < 200000; ++i) {
        // Half of them everywhere, half of the size of everyday numbers.
        const auto bits = random();
        const double everyday = std::ldexp(static_cast<double>(bits >> 11), i % 101 - 100);
        const double value = i % 2 == 0 ? std::bit_cast<double>(bits) : everyday;
        double back = 7;
        ASSERT_EQ(ParseDouble(TextOf(value), back), 1) << TextOf(value);
        ASSERT_TRUE(AreSame(value, back)) << TextOf(value);
        const float single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        const std::string text = FloatText(single);
        ASSERT_EQ(ParseDouble(text, back), 1) << text;
        ASSERT_TRUE(AreSame(single, static_cast<float>(back))) << text;
        ASSERT_LE(text.size(), std::string("-0.0000").size() + 9) << text;
    }
}

TEST(DoubleTextTest, OnlyWholeNumbersAreRead) {
    std::istringstream texts("+1.5 007 .5 5. 1e3 1E+3 -1e-3 0e9999 -0.0 -inf +inf 1e308 4.9e-324 +nan");
    double value = 0;
    for (std::string text; texts >> text;) {
        EXPECT_EQ(ParseDouble(text, value), 1) << text;
        EXPECT_TRUE(AreSame(value, std::strtod(text.c_str(), nullptr))) << text;
    }
    EXPECT_EQ(ParseDouble("0." + std::string(30000, '1'), value), 1);
    EXPECT_EQ(value, 1.0 / 9);
    value = 7;
    texts = std::istringstream(
        "+ - . +-1 --1 1,5 1.5. 1e 1e+ e5 0x10 1f INF infinity NaN nan(1) 1e309 -1e400 1e99999999999 1e-400 "
        "-0.1e-99999");
    for (std::string text; texts >> text;) {
        EXPECT_EQ(ParseDouble(text, value), 0) << text;
        EXPECT_EQ(value, 7) << text;
    }
    for (const std::string& text : {std::string(), std::string(" 1"), std::string("1 "), std::string("1\0", 2),
                                    std::string("+ 1"), std::string(400, '9')}) {
        EXPECT_EQ(ParseDouble(text, value), 0) << text;
        EXPECT_EQ(value, 7) << text;
    }
}

TEST(DecimalTextTest, OnlyWholeIntegersAreRead) {
    std::istringstream texts("0 -0 +12 -007 9223372036854775807 -9223372036854775808");
    long long value = 0;
    for (std::string text; texts >> text;) {
        EXPECT_EQ(ParseInteger(text, value), 1) << text;
        EXPECT_EQ(value, std::strtoll(text.c_str(), nullptr, 10)) << text;
    }
    value = 7;
    for (const char* const text : {"", "+", "-", "+-1", "-+1", "++1", "--1", " 1", "1 ", "1.0", "1e3", "0x1",
                                   "9223372036854775808", "-9223372036854775809", "99999999999999999999999"}) {
        EXPECT_EQ(ParseInteger(text, value), 0) << text;
        EXPECT_EQ(value, 7) << text;
    }
}

}  // namespace
