#include <MLCore/core/ErrorCodes.h>
#include <MLCore/crypto/CPASSWORD.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <string>

#include <support/Random.h>
#include "support/Failure.h"

namespace {

using namespace MLCore;
using support::FailureOf;

const std::string kAlphabet = "ABCDEFGHJKLMNPQRSTWXYZabcdefgijkmnopqrstwxyz123456789*$-+?_&=!%{}/";

/// The begins of the classes in the alphabet, and its end.
constexpr std::array<std::size_t, 5> kBounds = {0, 22, 44, 53, 66};

/// The content; the password must be sealed and is again.
std::string TextOf(CPASSWORD& password) {
    password.Lock();
    const std::string text(static_cast<const char*>(password), static_cast<std::size_t>(password.GetSize() - 1));
    EXPECT_EQ(static_cast<const char*>(password)[text.size()], '\0');
    password.Unlock();
    return text;
}

bool HasAllClasses(const std::string& text) {
    std::array<bool, 4> found{};
    for (const char character : text) {
        const auto end = std::upper_bound(kBounds.begin(), kBounds.end(), kAlphabet.find(character));
        found.at(static_cast<std::size_t>(end - kBounds.begin() - 1)) = true;
    }
    return found == std::array<bool, 4>{true, true, true, true};
}

TEST(PasswordTest, CreateDrawsFromAsManyFirstCharacters) {
    for (const short length : std::to_array<short>({0, 1, 8, 16, 66})) {
        const auto password = CPASSWORD::Create(length);
        EXPECT_EQ(password->GetSize(), length + 1);
        EXPECT_EQ(TextOf(*password).find_first_not_of(kAlphabet.substr(0, static_cast<std::size_t>(length))),
                  std::string::npos);
    }
    EXPECT_FALSE(*CPASSWORD::Create(66) == *CPASSWORD::Create(66));
    for (const short length : std::to_array<short>({-1, 67, 32767})) {
        EXPECT_EQ(FailureOf([=] { return CPASSWORD::Create(length); }), kErrInvalidArgument);
    }
}

TEST(PasswordTest, TheOthersHoldEachClass) {
    for (const auto create : {&CPASSWORD::CreateStrong, &CPASSWORD::CreateSecure}) {
        std::array<bool, 4> isUpperAt{};
        for (int round = 0; round < 200; ++round) {
            const std::string least = TextOf(*create(4));
            EXPECT_TRUE(HasAllClasses(least)) << least;
            EXPECT_TRUE(HasAllClasses(TextOf(*create(12)))) << least;
            isUpperAt[least.find_first_of(kAlphabet.substr(0, 22))] = true;
        }
        EXPECT_EQ(isUpperAt, (std::array<bool, 4>{true, true, true, true}));
        EXPECT_EQ(create(32767)->GetSize(), 32768);
        EXPECT_EQ(FailureOf([=] { return create(3); }), kErrInvalidArgument);
        EXPECT_EQ(FailureOf([=] { return create(-4); }), kErrInvalidArgument);
    }
}

// 4 characters: 24 orders of 22 * 22 * 9 * 13 choices. 5: 60 orders, and one of the 66 twice. The longest by exact
// integers.
TEST(PasswordTest, EntropyCountsTheTexts) {
    EXPECT_NEAR(CPASSWORD::SecureEntropy(4), std::log2(24.0 * 22 * 22 * 9 * 13), 1e-11);
    EXPECT_NEAR(CPASSWORD::SecureEntropy(5), std::log2(60.0 * 22 * 22 * 9 * 13 * 66), 1e-11);
    EXPECT_NEAR(CPASSWORD::SecureEntropy(32767), 198056.66210901845, 1e-8);
    EXPECT_EQ(FailureOf([] { return CPASSWORD::SecureEntropy(3); }), kErrInvalidArgument);
}

/// The share of texts of `length` over `left` of the characters, among all, that hold one of each class from the `i`th
/// on.
double Share(double length, std::size_t i, double left, std::size_t without = 4) {
    if (i == without) {
        return Share(length, i + 1, left, without);
    }
    const double size = i < 4 ? static_cast<double>(kBounds[i + 1] - kBounds[i]) : 0;
    return i >= 4 ? std::pow(left / 66, length)
                  : Share(length, i + 1, left, without) - Share(length, i + 1, left - size, without);
}

/// Whether texts of 12 characters are evenly drawn from those with all classes: Pearson's statistic, for each position
/// and for all together. By Laurent and Massart it exceeds k + 2 sqrt(kx) + 2x with a probability below exp(-x) for k
/// degrees of freedom: with x = 24, below 5e-10 for all 13 statistics.
bool IsEven(const std::function<std::string()>& draw) {
    constexpr int kDraws = 4000;
    constexpr double kLimit = 65 + 2 * 39.5 + 2 * 24;
    std::array<std::array<double, 66>, 13> counts{};
    for (int i = 0; i < kDraws; ++i) {
        const std::string text = draw();
        for (std::size_t at = 0; at < 12; ++at) {
            const std::size_t place = kAlphabet.find(text[at]);
            ++counts[at].at(place);
            ++counts[12].at(place);
        }
    }
    return std::all_of(counts.begin(), counts.end(), [&counts](const auto& row) {
        double statistic = 0;
        for (std::size_t place = 0, i = 0; place < 66; ++place) {
            i += place == kBounds[i + 1] ? 1 : 0;
            const double draws = kDraws * (&row == &counts[12] ? 12 : 1);
            const double expected = draws * Share(11, 0, 66, i) / 66 / Share(12, 0, 66);
            statistic += (row[place] - expected) * (row[place] - expected) / expected;
        }
        return statistic < kLimit;
    });
}

TEST(PasswordTest, CreateSecureIsEven) {
    EXPECT_TRUE(IsEven([] { return TextOf(*CPASSWORD::CreateSecure(12)); }));
    // A byte's remainder, without drawing again: the last eight characters come too rarely.
    support::RANDOM generator(1);
    EXPECT_FALSE(IsEven([&generator] {
        std::string text(12, ' ');
        while (std::generate(text.begin(), text.end(), [&] { return kAlphabet[generator() % 256 % 66]; }),
               !HasAllClasses(text)) {
        }
        return text;
    }));
}

TEST(PasswordTest, GivenBytesComeBack) {
    using namespace std::string_literals;
    for (const std::string& text :
         {""s, "pass"s, "fifteen letters"s, "sixteen letters."s, "\0zeros\0\0"s, "\xE9\x80"s}) {
        const auto password = CPASSWORD::Create(text.data(), static_cast<long>(text.size()));
        EXPECT_EQ(TextOf(*password), text);
        EXPECT_EQ(TextOf(*password->Clone()), text);
        EXPECT_TRUE(*password == *password);
        EXPECT_TRUE(*password == *password->Clone());
        EXPECT_EQ(*password == *CPASSWORD::Create(text.c_str()), text.find('\0') == std::string::npos);
        EXPECT_TRUE(*password != *CPASSWORD::Create("other"));
    }
    EXPECT_TRUE(*CPASSWORD::Create("word", 4) != *CPASSWORD::Create("wore", 4));
    EXPECT_TRUE(*CPASSWORD::Create(nullptr, 0) == *CPASSWORD::Create(""));
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create(nullptr); }), kErrNull);
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create(nullptr, 1); }), kErrNull);
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create("text", -1); }), kErrInvalidArgument);
}

TEST(PasswordTest, FailuresSayWhatWasAskedFor) {
    using support::Saying;
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create(67); }), Saying(132, "a password of 67 characters", "0 to 66"));
    EXPECT_EQ(FailureOf([] { return CPASSWORD::CreateSecure(3); }), Saying(132, "of 3 characters", "4 or more"));
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create(nullptr); }), Saying(-100, "text", "null"));
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create(nullptr, 1); }), Saying(-100, "bytes", "null"));
    EXPECT_EQ(FailureOf([] { return CPASSWORD::Create("text", -1); }), Saying(132, "-1 bytes", "0 or more"));
}

TEST(PasswordTest, MovedFromPasswordsAreEmpty) {
    const auto password = CPASSWORD::Create("moved");
    CPASSWORD taken(std::move(*password));
    EXPECT_EQ(TextOf(taken), "moved");
    EXPECT_EQ(password->GetSize(), 0);
    password->Lock();
    EXPECT_EQ(static_cast<const char*>(*password), nullptr);
    EXPECT_EQ(static_cast<const wchar_t*>(*password), nullptr);
    EXPECT_EQ(password->Clone()->GetSize(), 0);
    password->Unlock();
    EXPECT_TRUE(*password == *password->Clone());
    EXPECT_TRUE(taken != *password);
    taken = std::move(*&taken);
    taken.Lock();
    *password = std::move(taken);
    EXPECT_STREQ(static_cast<const char*>(*password), "moved");
    password->Unlock();
    EXPECT_EQ(TextOf(*password), "moved");
}

}  // namespace
