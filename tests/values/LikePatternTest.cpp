#include <MLCore/values/LikePattern.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace MLCore;
using OPTION = CVALUEOBJECT::ComparisonOption;

// The same under every option.
const struct {
    const char* pattern;
    std::vector<const char*> matches;
    std::vector<const char*> refuses;
} kPatterns[] = {
    // no "?": the same text
    {"", {""}, {"a"}},
    {"abc", {"abc"}, {"abcd", "ab", ""}},
    {"\xDF", {"\xDF"}, {"ss"}},
    // any text
    {"?", {"", "abc"}, {}},
    {"??", {"", "a"}, {}},
    {"???", {"", "abc"}, {}},
    // begins, ends
    {"ab?", {"ab", "abc"}, {"a", "xab"}},
    {"a??", {"a"}, {"ba"}},
    {"?bc", {"bc", "abc"}, {"c", "abcd"}},
    {"??a", {"a"}, {"ab"}},
    // both, without sharing a character
    {"ab?bc", {"abbc", "ab bc"}, {"abc", "abbcd"}},
    // contains
    {"?bc?", {"bc", "abcd"}, {"abdc", "b"}},
    // four pieces and more are walked
    {"a?b?c", {"zaXbYcz", "xxabc", "abcxyz"}, {"acb", ""}},
    {"a?b?", {"xab"}, {"ba"}},
    {"ab?b?", {"ab"}, {"a"}},
    {"aa?aa?", {"aaa"}, {"aa"}},
    {"?a?b", {"xab"}, {"ab"}},
    {"?ab?ab?", {"xabab"}, {"abab"}},
    {"a??b", {"axb"}, {"ab"}},
    {"a???", {"abc"}, {"a"}},
    {"????", {"abcd"}, {"abc"}},
    {"a?bc?", {"abc", "zazbc"}, {"abxc"}},
};

TEST(LikePatternTest, Matches) {
    for (const auto& row : kPatterns) {
        for (const int option : {0, 1, 2, 3, -1}) {
            for (const char* text : row.matches) {
                EXPECT_EQ(MatchesLike(text, row.pattern, OPTION{option}), 1) << row.pattern << " and " << text;
            }
            for (const char* text : row.refuses) {
                EXPECT_EQ(MatchesLike(text, row.pattern, OPTION{option}), 0) << row.pattern << " and " << text;
            }
        }
    }
}

TEST(LikePatternTest, OptionOneIgnoresCaseAndOptionTwoAccents) {
    const struct {
        const char* pattern;
        const char* text;
        std::string matches;  // by option; the last one is unknown
    } kRows[] = {
        {"AB?", "abc", "0100"},
        {"?BC", "abc", "0100"},
        {"?B?", "abc", "0100"},
        {"a?C", "Abc", "0100"},
        {"A?B?C", "zaXbYcz", "0100"},
        {"\xC9t\xE9", "\xE9T\xC9", "0100"},
        {"\x9C", "\x8C", "0100"},
        {"ete", "\xE9t\xE9", "0010"},
        {"Ete?", "\xC9t\xE9 2024", "0010"},
        {"ete?", "\xC9t\xE9 2024", "0000"},
        {"?fen\xEAtre?", "la fenetre", "0010"},
        {"?ar\xC7?n?", "un gar\xE7on", "0100"},
        {"?arc?n?", "un gar\xE7on", "0010"},
    };
    for (const auto& row : kRows) {
        std::string matches;
        for (const int option : {0, 1, 2, 3}) {
            matches += static_cast<char>('0' + MatchesLike(row.text, row.pattern, OPTION{option}));
        }
        EXPECT_EQ(matches, row.matches) << row.pattern << " and " << row.text;
    }
}

}  // namespace
