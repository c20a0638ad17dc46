#include <MLCore/net/CEMAIL.h>
#include <gtest/gtest.h>

#include <cctype>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

using namespace MLCore;

static_assert(std::is_nothrow_move_constructible_v<CEMAIL> && std::is_nothrow_move_assignable_v<CEMAIL>);

TEST(Email, IsSplitAtTheFirstSeparatorOutsideQuotes) {
    const struct {
        const char* address;
        const char* localPart;
        const char* domain;
        int isValid;
    } cases[] = {
        {nullptr, "", "", 0},
        {"a.b@c", "a.b", "c", 1},
        {R"("a@b"@c)", R"("a@b")", "c", 1},
        {"a@b@c", "a", "b@c", 0},
        {"a", "a", "", 0},
        {"a@", "a", "", 0},
        {"@c", "", "c", 0},
        {R"("a@b)", R"("a@b)", "", 0},
        {R"(a@"b"@c)", "a", R"("b"@c)", 0},
        // A quote behind a backslash counts as well: the first text has no '@' outside, the second one too early.
        {R"("a\"b"@c)", R"("a\"b"@c)", "", 0},
        {R"("a\"b@c"@d)", R"("a\"b)", R"(c"@d)", 0},
        {R"("a\"\"@b"@c)", R"("a\"\"@b")", "c", 1},
    };
    for (const auto& c : cases) {
        const CEMAIL email(c.address);
        EXPECT_EQ(email, CEMAIL(c.localPart, c.domain)) << email.GetLocalPart() << " and " << email.GetDomain();
        EXPECT_EQ(email.GetLocalPart(), c.localPart);
        EXPECT_EQ(email.GetDomain(), c.domain);
        EXPECT_EQ(email.IsValid(), c.isValid) << c.localPart;
        EXPECT_EQ(email.IsNull(), c.address == nullptr ? 1 : 0);
        EXPECT_EQ(email.ToString(), *c.localPart != '\0' && *c.domain != '\0' ? c.address : "");
    }
}

TEST(Email, WordsAreAtomsOrEnclosed) {
    const struct {
        int isLocalPart;
        int isDomain;
        std::vector<const char*> parts;
    } cases[] = {
        {1, 1, {"a", "a.b-c.d+e", "a.", "a.b."}},
        {1, 0, {R"("")", R"(a."b, c".d)", R"("a".)", R"("a\\")", "\"\xC3\xA9\"", R"("[")"}},
        {0, 1, {"[]", "[10.0.0.1]", "a.[10.0.0.1].b", "[10.0.0.1].", R"(["a@b, c])", R"([a\\])", "[\xC3\xA9]"}},
        {0, 0, {nullptr, "", ".", ".a", "a..b", "a..", "\xC3\xA9", "a b", "a,b"}},
        {0, 0, {R"("a"..)", R"("a"b)", R"(a"b")", R"("a""b")", R"("a)", R"("a\")", R"("a\)", R"(")"}},
        {0, 0, {"[10.0.0.1]..", "[a]b", "a[b]", "[a][b]", "[10.0.0.1", R"([10.0\])", R"([10.0\)", "["}},
    };
    for (const auto& c : cases) {
        for (const char* const part : c.parts) {
            EXPECT_EQ(CEMAIL(part, "d").IsValid(), c.isLocalPart) << part;
            EXPECT_EQ(CEMAIL("l", part).IsValid(), c.isDomain) << part;
        }
    }
}

TEST(Email, EveryByteInEveryPlace) {
    const auto isIn = [](std::string_view bytes, char c) { return bytes.find(c) != std::string_view::npos; };
    for (int byte = 1; byte <= 255; ++byte) {
        SCOPED_TRACE(byte);
        const std::string c(1, static_cast<char>(byte));
        const auto local = [](const std::string& text) { return CEMAIL(text.c_str(), "d").IsValid() == 1; };
        const auto domain = [](const std::string& text) { return CEMAIL("l", text.c_str()).IsValid() == 1; };
        const bool isAtom = byte < 128 && (std::isalnum(byte) != 0 || isIn("!#$%&'*+-/=?^_`{|}~", c[0]));
        for (const bool isLocal : {true, false}) {
            const auto isValid = [&](const std::string& text) { return isLocal ? local(text) : domain(text); };
            EXPECT_EQ(isValid(c + "b"), isAtom);
            EXPECT_EQ(isValid("a" + c + "b"), isAtom || byte == '.');
            EXPECT_EQ(isValid("a" + c), isAtom || byte == '.');
        }
        EXPECT_EQ(local("\"a" + c + "b\""), !isIn("\n\r\"", c[0]));
        EXPECT_EQ(domain("[a" + c + "b]"), !isIn("\n\r[]", c[0]));
        EXPECT_TRUE(local("\"a\\" + c + "b\""));
        EXPECT_TRUE(domain("[a\\" + c + "b]"));
        EXPECT_EQ(local("\"a\"" + c + "b"), byte == '.');
    }
}

// A scan that starts again at every word or quote would take minutes.
TEST(Email, LongTextsTakeLinearTime) {
    std::string dotted, escaped = "\"", separators = "\"";
    for (int i = 0; i < 500'000; ++i) {
        dotted += "a.";
        escaped += "\\\\";
        separators += "@@";
    }
    EXPECT_EQ(CEMAIL((dotted + '@' + dotted).c_str()).IsValid(), 1);
    EXPECT_EQ(CEMAIL((dotted + ".@c").c_str()).IsValid(), 0);
    EXPECT_EQ(CEMAIL((escaped + "\"@c").c_str()).IsValid(), 1);
    EXPECT_EQ(CEMAIL((escaped + "\\\"@c").c_str()).IsValid(), 0);
    EXPECT_EQ(CEMAIL(separators.c_str()).GetLocalPart(), separators);
    EXPECT_EQ(CEMAIL((separators + "\"@c").c_str()).GetDomain(), "c");
}

TEST(Email, IsAValue) {
    CEMAIL email("a", "bc");
    const CEMAIL copy = email;
    const CEMAIL moved = std::move(email);
    EXPECT_EQ(moved, copy);
    email = copy;
    EXPECT_EQ(email.ToString(), "a@bc");
    email.Clear();
    EXPECT_EQ(email, CEMAIL());
    EXPECT_EQ(email.IsNull(), 1);
    EXPECT_EQ(CEMAIL("", "b").IsNull(), 0);

    // Other splits of the same text, parts changed over, another case: all of them different.
    const CEMAIL ascending[] = {{"", "abc"}, {"A", "bc"}, {"a", "bC"}, {"a", "bc"},
                                {"ab", "c"}, {"abc", ""}, {"bc", "a"}};
    std::unordered_set<std::size_t> hashes;
    for (const CEMAIL& left : ascending) {
        hashes.insert(std::hash<CEMAIL>()(left));
        for (const CEMAIL& right : ascending) {
            EXPECT_EQ(left <=> right, &left <=> &right);
        }
    }
    EXPECT_EQ(hashes.size(), std::size(ascending));
    EXPECT_EQ(std::hash<CEMAIL>()(copy), std::hash<CEMAIL>()(CEMAIL("a@bc")));
}

}  // namespace
