#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CMEMSET.h>
#include <MLCore/values/CVALUEOBJECT.h>
#include <MLCore/values/TolerantComparison.h>
#include <MLCore/values/ValueComparison.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <iterator>
#include <limits>
#include <map>
#include <sstream>
#include <string>

namespace {

using namespace MLCore;
using support::FailureOf;
using TYPE = CVALUEOBJECT::ComparisonType;
using OPTION = CVALUEOBJECT::ComparisonOption;
using VALUEOBJECT = CSHAREOBJECTPTR<CVALUEOBJECT>;

constexpr OPTION kExact = OPTION::CaseSensitive;

/// What the twelve comparison types answer, a character each: '0', '1', or 'x' for a failure with 138.
template <class RIGHT>
std::string Answers(const VALUEOBJECT& left, const RIGHT& right, OPTION option) {
    std::string answers;
    for (int type = 0; type < 12; ++type) {
        int answer = -1;
        const auto failure = FailureOf([&] { answer = left->Cmp(right, TYPE{type}, option); });
        answers += failure == 138 ? 'x' : failure == 0 ? static_cast<char>('0' + answer) : '?';
    }
    return answers;
}

/// The answers for two values that are not both texts, by how they are to each other.
const std::map<char, std::string> kAnswers = {
    // < <= > >= = != Like Begins Ends In Contains Between
    {'<', "1100010xx0x0"}, {'=', "0101100xx0x0"},
    {'>', "0011010xx0x0"}, {'x', "xxxxxx0xx0x0"},  // cannot be brought together
    {'o', "0000010xx0x0"},                         // an object, and something else
    {'O', "0000100xx0x0"},                         // the same object
    {'0', "000001000000"},                         // one is null
    {'N', "000010000000"},                         // both are null
    {'t', "010110111010"},                         // the same text
};

void ExpectRelation(const CVALUE& left, const CVALUE& right, char relation) {
    const VALUEOBJECT object = CVALUEOBJECT::Create(left);
    for (const int option : {0, 1, 2, 3, -1}) {
        EXPECT_EQ(Answers(object, right, OPTION{option}), kAnswers.at(relation))
            << left.GetType() << ' ' << left << " and " << right.GetType() << ' ' << right << ", option " << option;
    }
    for (const int type : {-1, 12}) {
        EXPECT_EQ(object->Cmp(right, TYPE{type}, kExact), 0);
    }
}

const CDATE kFirst(1, 3, 2024);
const CTIME kNoon(12, 0, 0);
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(ValueObjectTest, ComparesAllPairsOfTypes) {
    const CVALUE object(CMEMARRAY::Create());
    const struct {
        CVALUE value;
        const char* relations;  // to the values of all rows
    } kRows[] = {
        {CVALUE(), "N0000000000000"},
        {short{-5}, "0=<<<x<x<<x<xx"},
        {static_cast<unsigned short>(40000), "0>=>>x>x>>x>xx"},
        {5L, "0><==x=x<=x>xx"},
        {5UL, "0><==x=x<=x>xx"},
        {kFirst, "0xxxx=xxxx<xxx"},
        {CTIME(0, 0, 5), "0><==x=x<=x>xx"},
        {"abc", "0xxxxxxtxxxxxx"},
        {5.5F, "0><>>x>x=>x>xx"},
        {5.000001, "0><==x=x<=x>xx"},
        {CDATETIME(kFirst, kNoon), "0xxxx>xxxx=xxx"},
        {1, "0><<<x<x<<x=xx"},
        {object, "0oooooooooooOo"},
        {GUID{1, 0, 0, {}}, "0xxxxxxxxxxxx="},
    };
    for (const auto& left : kRows) {
        for (std::size_t i = 0; i < std::size(kRows); ++i) {
            ExpectRelation(left.value, kRows[i].value, left.relations[i]);
        }
    }
}

TEST(ValueObjectTest, ComparesWithinAType) {
    const CDATETIME midnight(kFirst, CTIME());
    const CDATETIME noon(kFirst, kNoon);
    CVALUE cleared = CVALUE(GUID{1, 0, 0, {}});
    cleared.Clear();
    // Dates with date-times; identifiers by their bytes in memory; objects by identity.
    const struct {
        CVALUE left;
        CVALUE right;
        char relation;
    } kRows[] = {{1.0, 1.000009, '='},
                 {1.0, 1.00002, '<'},
                 {1.00002, 1.0, '>'},
                 {0.0, -0.0, '='},
                 {0.1F, 0.1, '='},
                 {16777216.0F, 16777217L, '<'},
                 {-2147483647L - 1L, 4294967295UL, '<'},
                 {short{-1}, static_cast<unsigned short>(65535), '<'},
                 {5, 1, '>'},
                 {CTIME(10, 0, 0), 36000L, '='},
                 {kInfinity, kInfinity, '='},
                 {-kInfinity, kInfinity, '<'},
                 {kInfinity, 1L, '>'},
                 {kNaN, 1.0, '='},
                 {5L, kNaN, '='},
                 {kFirst, CDATE(29, 2, 2024), '>'},
                 {kFirst, CDATE(1, 2, 2025), '<'},
                 {kFirst, midnight, '='},
                 {kFirst, noon, '<'},
                 {CDATE(2, 3, 2024), noon, '>'},
                 {midnight, kFirst, '='},
                 {midnight, noon, '<'},
                 {midnight, CDATE(2, 3, 2024), '<'},
                 {CDATE(), kFirst, '<'},
                 {CDATE(), CDATETIME(), '='},
                 {GUID{1, 0, 0, {}}, GUID{0x100, 0, 0, {}}, '>'},
                 {GUID{1, 0, 0, {}}, GUID{1, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0x80}}, '<'},
                 {cleared, GUID{0, 0, 0, {}}, '='},
                 {CMEMARRAY::Create(), CMEMARRAY::Create(), 'o'},
                 {CVALUE(CVALUE::Type::Object, nullptr), CVALUE(CVALUE::Type::Object, nullptr), 'O'}};
    for (const auto& row : kRows) {
        ExpectRelation(row.left, row.right, row.relation);
    }
}

TEST(ValueObjectTest, ComparesTextsByOption) {
    const struct {
        const char* left;
        const char* right;
        const char* answers[3];  // by option
    } kRows[] = {
        {"", "", {"010110111010", "010110111010", "010110111010"}},
        {"abc", "", {"001101011010", "001101011010", "001101011010"}},
        {"", "a", {"110001000000", "110001000000", "110001000000"}},
        {"abc", "ABC", {"001101000000", "010110111010", "010110011010"}},
        {"abcab", "AB", {"001101000000", "001101011010", "001101011010"}},
        {"abcde", "bcd", {"110001000010", "110001000010", "110001000010"}},
        {"\xE9t\xE9", "ete", {"001101000000", "001101000000", "010110111010"}},
        {"\xC9T\xC9", "\xE9t\xE9", {"110001000000", "010110111010", "010110011010"}},
        {"\xC9lan", "e", {"001101000000", "001101000000", "001101010010"}},
        {"\xE7\xE0", "\xC0", {"001101000000", "001101001010", "001101001010"}},
        {"zone", "\xE9t\xE9", {"110001000000", "001101000000", "001101000000"}},
        {"\xFF", "\x9F", {"001101000000", "010110111010", "010110011010"}},
        {"\x8Cuvre", "\x9Cuvre", {"110001000000", "010110111010", "110001000000"}},
        {"Dupont", "du?", {"110001000000", "001101100000", "001101000000"}},
    };
    for (const auto& row : kRows) {
        for (const int option : {0, 1, 2}) {
            EXPECT_EQ(Answers(CVALUEOBJECT::Create(row.left), row.right, OPTION{option}), row.answers[option])
                << row.left << " and " << row.right << ", option " << option;
        }
        EXPECT_EQ(Answers(CVALUEOBJECT::Create(row.left), row.right, OPTION{3}), row.answers[0]) << row.left;
    }
}

TEST(ValueObjectTest, ComparesWithObjects) {
    const VALUEOBJECT abc = CVALUEOBJECT::Create("abc");
    const VALUEOBJECT five = CVALUEOBJECT::Create(5L);
    const VALUEOBJECT null = CVALUEOBJECT::Create();
    const VALUEOBJECT upper = CVALUEOBJECT::Create("B");
    const VALUEOBJECT equalToFive = CVALUEOBJECT::Create(5.000001);
    const auto mixed = CMEMARRAY::Create({nullptr, CMEMARRAY::Create(), null, upper});
    const auto numbers = CMEMSET::Create({CVALUEOBJECT::Create(4L), equalToFive, upper});
    const auto dictionary = CMEMDICTIONARY::Create("a", abc);
    const struct {
        VALUEOBJECT left;
        CSHAREOBJECTPTR<COBJECT> right;
        OPTION option;
        const char* answers;
    } kRows[] = {
        {abc, CVALUEOBJECT::Create("ABC"), OPTION::CaseInsensitive, "010110111010"},  // as its value
        {five, upper, kExact, "xxxxxx0xx0x0"},
        {five, nullptr, kExact, "000000000000"},
        {null, nullptr, kExact, "000000000000"},
        {abc, mixed, kExact, "000000000000"},
        {abc, mixed, OPTION::CaseInsensitive, "000000000010"},
        {CVALUEOBJECT::Create("b"), mixed, OPTION::DiacriticInsensitive, "000000000110"},
        {null, mixed, kExact, "000000000100"},
        {five, mixed, kExact, "000000000x00"},
        {five, numbers, kExact, "000000000100"},  // found before the element that would fail
        {CVALUEOBJECT::Create(6L), numbers, kExact, "000000000x00"},
        {abc, CMEMSET::Create({five, upper}), OPTION::CaseInsensitive, "000000000x10"},
        {abc, CMEMARRAY::Create(), kExact, "000000000000"},
        {abc, dictionary, kExact, "000000000000"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Answers(row.left, row.right, row.option), row.answers)
            << row.left->GetValue() << ", row " << &row - kRows;
    }
    EXPECT_EQ(five->Cmp(0, TYPE::NotEqual, kExact), 0);  // no object, rather than False
    EXPECT_EQ(five->Cmp(0L, TYPE::NotEqual, kExact), 1);
}

/// Takes texts of the same length for equal.
class CLENGTHS : public CVALUEOBJECT {
public:
    explicit CLENGTHS(const CVALUE& value) : CVALUEOBJECT(value) {}

    using CVALUEOBJECT::CmpContains;
    using CVALUEOBJECT::CmpLike;

protected:
    short CmpString(const char* left, const char* right, ComparisonOption) const override {
        return DoubleCmp(static_cast<double>(std::string(left).size()), static_cast<double>(std::string(right).size()));
    }
};

TEST(ValueObjectTest, DerivedClassesOrderTextsTheirWay) {
    const auto object = AdoptObject(new CLENGTHS("xyz"));
    EXPECT_EQ(Answers(object, "abc", kExact), "010110000000");
    EXPECT_EQ(Answers(object, "abcd", kExact), "110001000000");
    EXPECT_EQ(object->CmpLike("abc", "a?"), 1);
    EXPECT_EQ(object->CmpLike("abc", "A?"), 0);
    EXPECT_EQ(object->CmpContains("abc", "bc"), 1);
    EXPECT_EQ(object->CmpContains("abc", "BC"), 0);
}

TEST(ValueObjectTest, HoldsAValue) {
    const auto made = COBJECTFACTORY::GetInstance()->CreateObjectFromIdentifier("CVALUEOBJECT");
    auto* const object = dynamic_cast<CVALUEOBJECT*>(made.Get());
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetUseCount(), 1);
    EXPECT_EQ(object->GetValue(), CVALUE::Null());
    object->SetValue(5L);
    EXPECT_EQ(*object, CVALUE(5L));
    EXPECT_EQ(CVALUE(5L), *object);
    EXPECT_FALSE(*object != CVALUE(5L));
    EXPECT_FALSE(CVALUE(5L) != *object);
    EXPECT_NE(*object, CVALUE(5.0));
    EXPECT_NE(CVALUE(short{5}), *object);
    EXPECT_FALSE(*object == CVALUE(5.0));
    EXPECT_FALSE(CVALUE(short{5}) == *object);
    EXPECT_EQ(FailureOf([&] { return object->GetKeyValue("value"); }), 151);
    EXPECT_EQ(FailureOf([&] { return object->Clone(); }), 150);
    EXPECT_EQ(ValueOf(made), CVALUE(5L));
    EXPECT_EQ(FailureOf([] { return ValueOf(nullptr); }), 138);
    EXPECT_EQ(FailureOf([] { return ValueOf(CMEMARRAY::Create()); }), 138);
}

TEST(ValueObjectTest, IsAskedForByItsClass) {
    const VALUEOBJECT own = CVALUEOBJECT::Create(5L);
    const auto derived = AdoptObject(new CLENGTHS("xyz"));
    const auto array = CMEMARRAY::Create();
    for (CVALUEOBJECT* const object : {own.Get(), static_cast<CVALUEOBJECT*>(derived.Get())}) {
        EXPECT_EQ(AsValueObject(static_cast<COBJECT*>(object)), object);
        EXPECT_EQ(AsValueObject(static_cast<const COBJECT*>(object)), object);
    }
    EXPECT_EQ(AsValueObject(static_cast<COBJECT*>(array.Get())), nullptr);
    EXPECT_EQ(AsValueObject(static_cast<COBJECT*>(nullptr)), nullptr);
    EXPECT_EQ(CVALUEOBJECT::Create("xyz")->Cmp(derived, TYPE::Equal, kExact), 1) << "a value object of any class";
}

TEST(ValueObjectTest, IsWritten) {
    std::ostringstream out;
    for (int type = -1; type <= 12; ++type) {
        out << TYPE{type} << ' ';
    }
    for (int option = -1; option <= 3; ++option) {
        out << OPTION{option} << ' ';
    }
    out << CVALUEOBJECT::Create("it's") << ' ' << CVALUEOBJECT::Create().Get() << ' ' << VALUEOBJECT();
    EXPECT_EQ(
        out.str(),
        " ComparisonType::Lesser ComparisonType::LesserEqual ComparisonType::Greater ComparisonType::GreaterEqual "
        "ComparisonType::Equal ComparisonType::NotEqual ComparisonType::Like ComparisonType::Begins "
        "ComparisonType::Ends ComparisonType::In ComparisonType::Contains ComparisonType::Between  "
        " caseSensitive caseInsensitive diacriticInsentive  it's Null CVALUEOBJECT()");
}

TEST(CmpTest, NumbersHaveATolerance) {
    const struct {
        double left;
        double right;
        short order;
    } kRows[] = {{1.0, 1.000009, 0}, {1.0, 1.00002, -1}, {1.00002, 1.0, 1}, {kNaN, 1.0, 0}, {-kInfinity, 0.0, -1}};
    for (const auto& row : kRows) {
        EXPECT_EQ(Cmp<double>(row.left, row.right), row.order) << row.left << ' ' << row.right;
        EXPECT_EQ(Updated<double>(row.left, row.right), row.order != 0) << row.left << ' ' << row.right;
    }
}

TEST(CmpTest, TextsCompareByBytes) {
    EXPECT_EQ(Cmp<std::string>("abc", "abd"), -1);
    EXPECT_EQ(Cmp<std::string>("\xE9", "zz"), 1);
    EXPECT_EQ(Cmp<std::string>(std::string("a\0b", 3), "a"), 1);
    EXPECT_FALSE(Updated<std::string>("abc", "abc"));
    EXPECT_TRUE(Updated<std::string>("abc", "ABC"));
}

}  // namespace
