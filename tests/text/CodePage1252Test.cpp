#include <MLCore/text/CodePage1252.h>
#include <gtest/gtest.h>
#include <support/Random.h>

#include <random>
#include <string>
#include <string_view>

namespace {

using namespace MLCore;
using namespace std::string_literals;

TEST(CodePage1252Test, EveryByteSurvives) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    int lossy = -1;
    const std::string utf8 = Utf8FromAnsi(all, &lossy);
    EXPECT_EQ(lossy, 0);
    EXPECT_EQ(utf8.substr(0, 128), all.substr(0, 128));
    lossy = -1;
    EXPECT_EQ(AnsiFromUtf8(utf8, &lossy), all);
    EXPECT_EQ(lossy, 0);
}

TEST(CodePage1252Test, PublishedCharacters) {
    // From the table that the Unicode Consortium publishes for the code page, and Windows' reading of the undefined
    // bytes.
    const struct {
        const char* ansi;
        const char* utf8;
    } kRows[] = {{"\x80", "\xE2\x82\xAC"},
                 {"\x83", "\xC6\x92"},
                 {"\x85", "\xE2\x80\xA6"},
                 {"\x88", "\xCB\x86"},
                 {"\x89", "\xE2\x80\xB0"},
                 {"\x8A", "\xC5\xA0"},
                 {"\x8C", "\xC5\x92"},
                 {"\x8E", "\xC5\xBD"},
                 {"\x91", "\xE2\x80\x98"},
                 {"\x92", "\xE2\x80\x99"},
                 {"\x96", "\xE2\x80\x93"},
                 {"\x99", "\xE2\x84\xA2"},
                 {"\x9C", "\xC5\x93"},
                 {"\x9F", "\xC5\xB8"},
                 {"\xA0", "\xC2\xA0"},
                 {"\xE9", "\xC3\xA9"},
                 {"\xFF", "\xC3\xBF"},
                 {"\x81\x8D", "\xC2\x81\xC2\x8D"},
                 {"\x8F\x90", "\xC2\x8F\xC2\x90"},
                 {"\x9D", "\xC2\x9D"}};
    for (const auto& row : kRows) {
        EXPECT_EQ(Utf8FromAnsi(row.ansi), row.utf8);
        EXPECT_EQ(AnsiFromUtf8(row.utf8), row.ansi);
    }
    EXPECT_EQ(Utf8FromAnsi("a\0b"s), "a\0b"s);
    EXPECT_EQ(AnsiFromUtf8("a\0b"s), "a\0b"s);
    EXPECT_EQ(Utf8FromAnsi("") + AnsiFromUtf8(""), "");
}

TEST(CodePage1252Test, WhatIsLostIsCounted) {
    const struct {
        std::string_view utf8;
        std::string_view ansi;
        int lossy;
    } kRows[] = {
        {"\xC4\x81", "?", 1},            // a with macron: no nearest letter is taken
        {"\xC2\x80", "?", 1},            // U+0080, whose byte is the euro sign
        {"\xF0\x9F\x98\x80!", "?!", 1},  // four bytes, one character
        {"\xEF\xBB\xBFx", "?x", 1},      // a byte-order mark
        {"\xF4\x8F\xBF\xBF", "?", 1},    // the last code point
        {"?", "?", 0},                   // a question mark that was one
        {"\x80", "?", 1},                // a continuation alone
        {"\xBF\xBF", "??", 2},
        {"\xC0\xAF", "??", 2},  // overlong forms
        {"\xE0\x80\xAF", "???", 3},
        {"\xF0\x80\x80\xAF", "????", 4},
        {"\xED\xA0\x80", "???", 3},       // a surrogate
        {"\xF4\x90\x80\x80", "????", 4},  // beyond the last code point
        {"\xF5\xFE\xFF", "???", 3},       // bytes that begin nothing
        {"\xE2\x82", "?", 1},             // cut off at the end
        {"\xF0\x9F\x98", "?", 1},
        {"\xC3", "?", 1},
        {"\xE2\x82"
         "A\xC3"
         "\xC3\xA9",
         "?A?\xE9", 2},  // cut off by the next character
        // The example of the Unicode Standard for the recommended practice.
        {"\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64", "a???b?c??d", 6},
    };
    for (const auto& row : kRows) {
        int lossy = -1;
        EXPECT_EQ(AnsiFromUtf8(row.utf8, &lossy), row.ansi);
        EXPECT_EQ(lossy, row.lossy) << row.ansi;
    }
}

TEST(CodePage1252Test, AnyBytesGiveATextThatSurvives) {
    support::RANDOM random(1252);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> length(0, 40);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes(length(random), '\0');
        for (char& character : bytes) {
            character = static_cast<char>(byte(random));
        }
        EXPECT_EQ(AnsiFromUtf8(Utf8FromAnsi(bytes)), bytes);
        int first = -1;
        int second = -1;
        const std::string ansi = AnsiFromUtf8(bytes, &first);
        EXPECT_LE(ansi.size(), bytes.size());
        EXPECT_LE(static_cast<std::size_t>(first), ansi.size());
        EXPECT_EQ(AnsiFromUtf8(Utf8FromAnsi(ansi), &second), ansi);
        EXPECT_EQ(second, 0);
    }
}

}  // namespace
