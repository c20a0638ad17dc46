#include <MLCore/text/LegacyStrings.h>

#include <MLCore/platform/LocaleCompare.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace MLCore {

namespace {

template <char (*Rule)(char) noexcept>
char* Replace(char* text) noexcept {
    for (char* at = text; at != nullptr && *at != 0; ++at) {
        *at = Rule(*at);
    }
    return text;
}

const char* TextOf(const char* text) noexcept { return text != nullptr ? text : ""; }

short SignOf(int difference) noexcept { return static_cast<short>((difference > 0) - (difference < 0)); }

bool IsDigit(char character) noexcept { return character >= '0' && character <= '9'; }

// Walks over a text letter by letter, two of them where one character stands for two.
class LETTERS {
public:
    explicit LETTERS(const char* text) noexcept : mAt(text) {}

    struct LETTER {
        int order;  // 0 at the end, however often one asks
        int accent;
    };

    LETTER Next() noexcept {
        const ANSICHARACTER& character = AnsiCharacterOf(*mAt);
        const bool isFirstOfTwo = character.second != 0 && !mIsSecond;
        const int order = mIsSecond ? character.second : character.order;
        mIsSecond = isFirstOfTwo;
        mAt += isFirstOfTwo || *mAt == 0 ? 0 : 1;
        return {order, character.accent};
    }

    // A run of digits.
    struct NUMBER {
        std::size_t zeros;  // at its beginning
        std::string_view digits;

        // As numbers of any length.
        int Compare(const NUMBER& other) const noexcept {
            return digits.size() != other.digits.size() ? (digits.size() < other.digits.size() ? -1 : 1)
                                                        : digits.compare(other.digits);
        }
    };

    [[nodiscard]] bool IsAtNumber() const noexcept { return !mIsSecond && IsDigit(*mAt); }
    NUMBER TakeNumber() noexcept {
        const char* const begin = mAt;
        mAt += std::strspn(mAt, "0");
        const char* const digits = mAt;
        while (IsDigit(*mAt)) {
            ++mAt;
        }
        return {static_cast<std::size_t>(digits - begin), {digits, static_cast<std::size_t>(mAt - digits)}};
    }

private:
    const char* mAt;
    bool mIsSecond = false;
};

}  // namespace

char* lstrupr(char* text) noexcept { return Replace<UpperAnsi>(text); }

char* lstrrmvaccent(char* text) noexcept { return Replace<WithoutAccent>(text); }

short lstrcmpinolocal(const char* left, const char* right) noexcept {
    const auto keyOf = [](char character) { return static_cast<unsigned char>(WithoutAccentOrCase(character)); };
    const char* a = TextOf(left);
    const char* b = TextOf(right);
    while (*a != 0 && keyOf(*a) == keyOf(*b)) {
        ++a;
        ++b;
    }
    return SignOf(keyOf(*a) - keyOf(*b));
}

short CompareNoCaseLocale(const char* left, const char* right) noexcept {
    short order = 0;
    return platform::SystemCompareNoCase(TextOf(left), TextOf(right), order) ? order
                                                                             : CompareNoCaseByTable(left, right);
}

short CompareNoCaseByTable(const char* left, const char* right) noexcept {
    LETTERS a(TextOf(left));
    LETTERS b(TextOf(right));
    int firstAccent = 0;
    for (;;) {
        const LETTERS::LETTER x = a.Next();
        const LETTERS::LETTER y = b.Next();
        if (x.order != y.order) {
            return SignOf(x.order - y.order);
        }
        if (firstAccent == 0) {
            firstAccent = x.accent - y.accent;
        }
        if (x.order == 0) {
            return SignOf(firstAccent);
        }
    }
}

short CompareNaturally(const char* left, const char* right) noexcept {
    LETTERS a(TextOf(left));
    LETTERS b(TextOf(right));
    const LETTERS::LETTER number = {AnsiCharacterOf('0').order, 0};  // all numbers stand there, and nothing but them
    int firstDifference = 0;                                         // of accents or leading zeros
    for (;;) {
        if (a.IsAtNumber() && b.IsAtNumber()) {
            const LETTERS::NUMBER x = a.TakeNumber();
            const LETTERS::NUMBER y = b.TakeNumber();
            if (const int order = x.Compare(y); order != 0) {
                return SignOf(order);
            }
            if (firstDifference == 0) {
                firstDifference = (x.zeros > y.zeros) - (x.zeros < y.zeros);
            }
            continue;
        }
        const LETTERS::LETTER x = a.IsAtNumber() ? number : a.Next();
        const LETTERS::LETTER y = b.IsAtNumber() ? number : b.Next();
        if (x.order != y.order) {
            return SignOf(x.order - y.order);
        }
        if (firstDifference == 0) {
            firstDifference = x.accent - y.accent;
        }
        if (x.order == 0) {
            return SignOf(firstDifference);
        }
    }
}

}  // namespace MLCore
