#include <MLCore/text/CodePage1252.h>
#include <MLCore/text/LegacyStrings.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#if defined(_WIN32)
#include <MLCore/platform/WinTypes.h>

#include <iostream>
#endif

namespace {

using namespace MLCore;

std::vector<std::string> WordsOf(const char* utf8) {
    std::istringstream in(AnsiFromUtf8(utf8));
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

std::vector<std::string> Characters() {
    std::vector<std::string> characters;
    for (int code = 1; code < 256; ++code) {
        characters.emplace_back(1, static_cast<char>(code));
    }
    return characters;
}

std::vector<std::string> RandomWords(const char* alphabet) {
    const std::string letters = AnsiFromUtf8(alphabet);
    std::mt19937 random(256);
    std::vector<std::string> words(800);
    for (std::string& word : words) {
        for (auto length = 1 + random() % 4; length > 0; --length) {
            word += letters[random() % letters.size()];
        }
    }
    return words;
}

TEST(LegacyStringsTest, EveryCharacterHasItsCapitalAndItsBareLetter) {
    const std::string accented = AnsiFromUtf8("ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÑÒÓÔÕÖÙÚÛÜÝŸŠŽàáâãäåçèéêëìíîïñòóôõöùúûüýÿšž");
    const std::string bare = "AAAAAACEEEEIIIINOOOOOUUUUYYSZaaaaaaceeeeiiiinooooouuuuyysz";
    ASSERT_EQ(accented.size(), bare.size());
    for (int code = 0; code < 256; ++code) {
        const char character = static_cast<char>(code);
        const bool isBelow = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
        const bool isBetween = code == 0x9A || code == 0x9C || code == 0x9E;
        const int upper = isBelow ? code - 0x20 : isBetween ? code - 0x10 : code == 0xFF ? 0x9F : code;
        EXPECT_EQ(UpperAnsi(character), static_cast<char>(upper)) << code;
        const auto at = accented.find(character);
        EXPECT_EQ(WithoutAccent(character), at == std::string::npos ? character : bare[at]) << code;
    }
    std::string text = AnsiFromUtf8("Cœur d'Été, ß÷ÿ 12");
    EXPECT_EQ(lstrupr(text.data()), text.data());
    EXPECT_EQ(Utf8FromAnsi(text), "CŒUR D'ÉTÉ, ß÷Ÿ 12");
    EXPECT_EQ(lstrrmvaccent(text.data()), text.data());
    EXPECT_EQ(Utf8FromAnsi(text), "CŒUR D'ETE, ß÷Y 12");
    EXPECT_EQ(lstrupr(nullptr), nullptr);
    EXPECT_EQ(lstrrmvaccent(nullptr), nullptr);
}

// Holds a comparison against words in their order, and against pairs of equal ones.
void ExpectOrder(short (*compare)(const char*, const char*) noexcept, const char* ordered, const char* pairs) {
    const std::vector<std::string> words = WordsOf(ordered);
    for (std::size_t i = 0; i < words.size(); ++i) {
        for (std::size_t j = 0; j < words.size(); ++j) {
            EXPECT_EQ(compare(words[i].c_str(), words[j].c_str()), (i > j) - (i < j))
                << Utf8FromAnsi(words[i]) << ' ' << Utf8FromAnsi(words[j]);
        }
    }
    const std::vector<std::string> equals = WordsOf(pairs);
    for (std::size_t i = 0; i < equals.size(); i += 2) {
        EXPECT_EQ(compare(equals[i].c_str(), equals[i + 1].c_str()), 0) << Utf8FromAnsi(equals[i]);
    }
    EXPECT_EQ(compare(nullptr, ""), 0);
    EXPECT_EQ(compare(nullptr, "a"), -1);
    EXPECT_EQ(compare("a", nullptr), 1);
}

TEST(LegacyStringsTest, WordsStandInTheirOrder) {
    ExpectOrder(lstrcmpinolocal, "10 9 a ab Âme co-op Coop cote été ETES f ss z [B _ Œ œ Æ Ø ß æ ø þ",
                "Été ETE ñ N Ÿ y Ž z");
    // On Windows the second is the system's own rule.
    for (const auto compare : {CompareNoCaseByTable, CompareNoCaseLocale}) {
        ExpectOrder(compare,
                    "_ 1 10 2 9 9a a á à â ä ã å aa ab ae aé aea æb b cote coté côte côté coter czar d ð db e é ê eb "
                    "eé ée élan f n ñ na o ó ò ô ö õ ø od œil of peche péché pêche pécher strasse straßf t th þb u ú "
                    "ù û ü v y ý ÿ z ž zz",
                    "Straße STRASSE œuvre OEUVRE ÉTÉ été Ÿ ÿ æ Ae þ TH Œ œ ß ß ßS sß Ðø ðØ");
    }
}

TEST(LegacyStringsTest, NumbersInTextsStandInTheirOrder) {
    ExpectOrder(
        CompareNaturally,
        "- -1 -2 _ 0 00 1 01 001 1-1 1,5 1,10 1a 1a01 1a2 2 9 10 010 10a 99 100 18446744073709551616 "
        "99999999999999999999999999999999 100000000000000000000000000000000 \u00BD \u00B9 \u00B2 a a1 a01 á1 a1b a2 "
        "a10 æ9 æ10 b2c10 b10 Facture2 Facture10 m2 m10 m\u00B2",
        "Facture2 FACTURE2 æ9 Ae9 ß10 SS10");
}

// All texts of up to three characters, and their equality by the table.
TEST(LegacyStringsTest, TheNaturalOrderIsOne) {
    std::vector<std::string> texts = {""};
    for (std::size_t begin = 0, length = 1; length <= 3; ++length) {
        const std::size_t end = texts.size();
        for (; begin < end; ++begin) {
            for (const char character : AnsiFromUtf8("019aÁæe²-")) {
                texts.push_back(texts[begin] + character);
            }
        }
    }
    const auto compare = [](const std::string& a, const std::string& b) {
        return CompareNaturally(a.c_str(), b.c_str());
    };
    std::sort(texts.begin(), texts.end(), [&](const auto& a, const auto& b) { return compare(a, b) < 0; });
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = i; j < texts.size(); ++j) {
            const int order = compare(texts[i], texts[j]);
            const int byTable = CompareNoCaseByTable(texts[i].c_str(), texts[j].c_str());
            ASSERT_LE(order, 0) << texts[i] << ' ' << texts[j];
            ASSERT_EQ(compare(texts[j], texts[i]), -order) << texts[i] << ' ' << texts[j];
            ASSERT_EQ(order == 0, byTable == 0) << texts[i] << ' ' << texts[j];
            if ((texts[i] + texts[j]).find_first_of("019") == std::string::npos) {
                ASSERT_EQ(order, byTable) << texts[i] << ' ' << texts[j];
            }
        }
    }
}

// Two texts are equal when these are.
std::string Expanded(const std::string& text) {
    std::string expanded;
    for (const char character : text) {
        const char upper = UpperAnsi(character);
        const auto at = std::string("\xDF\x8C\xC6\xDE").find(upper);
        expanded += at == std::string::npos ? std::string(1, upper) : std::string("SSOEAETH").substr(at * 2, 2);
    }
    return expanded;
}

TEST(LegacyStringsTest, TheTableOrdersAllTexts) {
    std::vector<std::string> texts = RandomWords("ssStToOeEaAhHßœŒæþéÉèøo-'1");
    for (const std::string& character : Characters()) {
        texts.push_back(character);
    }
    const auto compare = [](const std::string& a, const std::string& b) {
        return CompareNoCaseByTable(a.c_str(), b.c_str());
    };
    std::sort(texts.begin(), texts.end(), [&](const auto& a, const auto& b) { return compare(a, b) < 0; });
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = i; j < texts.size(); ++j) {
            const int order = compare(texts[i], texts[j]);
            ASSERT_LE(order, 0) << texts[i] << ' ' << texts[j];
            ASSERT_EQ(compare(texts[j], texts[i]), -order) << texts[i] << ' ' << texts[j];
            ASSERT_EQ(order == 0, Expanded(texts[i]) == Expanded(texts[j])) << texts[i] << ' ' << texts[j];
        }
    }
}

#if defined(_WIN32)
bool HasOnlyLettersAndDigits(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char character) {
        const char base = UpperAnsi(WithoutAccent(character));
        return (base >= '0' && base <= '9') || (base >= 'A' && base <= 'Z') ||
               std::string("\x8C\xC6\xD0\xD8\xDE\xDF").find(base) != std::string::npos;
    });
}

// Prints every pair that the table orders otherwise than the system; none may hold but letters and digits.
void Report(const char* title, const std::vector<std::string>& texts) {
    int differences = 0;
    for (const std::string& left : texts) {
        for (const std::string& right : texts) {
            const int result = lstrcmpiA(left.c_str(), right.c_str());
            const int system = (result > 0) - (result < 0);
            const int table = CompareNoCaseByTable(left.c_str(), right.c_str());
            if (system != table) {
                ++differences;
                std::cout << Utf8FromAnsi(left + "  " + right) << "  system " << system << ", table " << table << '\n';
                EXPECT_FALSE(HasOnlyLettersAndDigits(left + right)) << left << ' ' << right;
            }
        }
    }
    std::cout << title << ": " << differences << " of " << texts.size() * texts.size() << " pairs differ\n";
}

TEST(LegacyStringsTest, TheTableAgreesWithTheSystem) {
    for (std::string text : Characters()) {
        const char character = text[0];
        EXPECT_EQ(UpperAnsi(character), *CharUpperA(text.data())) << text;
    }
    Report("Characters", Characters());
    Report("Random words", RandomWords("sStToOeEaAhHdDnN129ßœŒæþÞðéÉèêëàâåñøõö"));
    Report("Words",
           WordsOf("à âge agé âme ami Août août aout œuvre oeuvre Œdipe bœuf boeuf cœur coeur chœur nœud sœur ça "
                   "çà cède cédé Céline cher chère chéri cote coté côte côté coteau cotte dès des dû du élève "
                   "élevé élevée eleve Élodie événement être foret forêt français Français garçon gène gêne "
                   "hâte haut île ile maïs mais mûr mur Noël noël où ou péché pêche pécher pêcher peche sûr sur "
                   "tâche tache Zoé zoo L'Haÿ l'été lete co-op coop porte-clé porteclé aujourd'hui 2e 2è 10e"));
}
#endif

}  // namespace
