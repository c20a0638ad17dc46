#include <MLCore/text/LegacyStrings.h>

#include <MLCore/platform/LocaleCompare.h>

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

}  // namespace MLCore
