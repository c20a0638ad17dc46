#include <MLCore/platform/WinTypes.h>
#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>
#include <MLCore/predicates/SortArray.h>
#include <MLCore/predicates/SortDescriptors.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <gtest/gtest.h>
#include <support/Failure.h>
#include <support/Random.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace MLCore;
using support::FailureOf;
using support::Saying;
using COMPARISON = CVALUEOBJECT::ComparisonType;
using OPTION = CVALUEOBJECT::ComparisonOption;
using OBJECTS = std::vector<CSHAREOBJECTPTR<COBJECT>>;
using BUILDER = CSORTDESCRIPTORBUILDER;
constexpr OPTION kExact = OPTION::CaseSensitive;

OBJECTS ObjectsIn(const CSHAREOBJECTPTR<CARRAY>& array) {
    OBJECTS objects;
    std::ranges::copy(*array, std::back_inserter(objects));
    return objects;
}

// "+key;" for each ascending key and "-key;" for each descending one.
std::string TextOf(CARRAY* order) {
    std::string text;
    for (const auto& element : ObjectsIn(order)) {
        const auto& descriptor = dynamic_cast<const CSORTDESCRIPTOR&>(*element);
        text += "+-"[static_cast<int>(descriptor.GetSortOrderType())] + descriptor.GetKey() + ";";
    }
    return text;
}

OBJECTS Sorted(const OBJECTS& records, const std::string& order, OPTION option = kExact) {
    return ObjectsIn(SortArray(CMEMARRAY::Create(records), BUILDER(order), option));
}

CSHAREOBJECTPTR<COBJECT> Record(const CVALUE& a, const CVALUE& b = {}) {
    const auto record = CMEMDICTIONARY::Create("a", CVALUEOBJECT::Create(a));
    record->SetKeyValue("b", CVALUEOBJECT::Create(b));
    return record;
}

int Relation(COBJECT* left, COBJECT* right, const char* key, OPTION option) {
    const auto a = left->GetKeyValue(key), b = right->GetKeyValue(key);
    const auto is = [&](COMPARISON type) { return dynamic_cast<CVALUEOBJECT&>(*a).Cmp(b, type, option); };
    return is(COMPARISON::Greater) - is(COMPARISON::Lesser);
}

TEST(SortDescriptors, ReadsTexts) {
    const std::pair<const char*, const char*> kCases[] = {
        {" ; + ;-", ""},
        {"-a;b", "-a;+b;"},
        {"  -  first name  ;+ b.c[0] ", "-first name;+b.c[0];"},
        {"+-a;-+b;- ;c", "-a;+b;+c;"},
        {"a-;b+c;;-;d", "+a-;+b+c;+d;"},
        {"-\ta;", "-\ta;"},
    };
    for (const auto& [text, descriptors] : kCases) {
        EXPECT_EQ(TextOf(BUILDER::Create(text)), descriptors) << text;
    }

    BUILDER builder("-a");
    BUILDER copy(builder);
    (copy << "b") << "c;-d";
    EXPECT_EQ(TextOf(builder), "-a;");
    builder = std::move(copy);
    EXPECT_EQ(TextOf(builder), "-a;+b;+c;-d;");
}

TEST(SortDescriptors, AreComparedAndReversed) {
    const auto order = BUILDER::Create("a;-b");
    const auto none = CMEMARRAY::Create();
    const auto other = CMEMARRAY::Create(none);
    EXPECT_EQ(CmpSortDescriptors(nullptr, nullptr), 1);
    EXPECT_FALSE(CmpSortDescriptors(nullptr, none));
    EXPECT_FALSE(CmpSortDescriptors(none, nullptr));
    EXPECT_EQ(CmpSortDescriptors(order, BUILDER("+a;- b;")), 1);
    for (const char* text : {"", "a", "a;-b;c", "A;-b", "a;b", "-b;a"}) {
        EXPECT_FALSE(CmpSortDescriptors(order, BUILDER(text))) << text;
        EXPECT_FALSE(CmpSortDescriptors(BUILDER(text), order)) << text;
    }
    EXPECT_FALSE(CmpSortDescriptors(other, other));

    EXPECT_EQ(TextOf(ReverseSortDescriptors(order)), "-a;+b;");
    EXPECT_TRUE(CmpSortDescriptors(ReverseSortDescriptors(ReverseSortDescriptors(order)), order));
    EXPECT_EQ(ReverseSortDescriptors(nullptr), nullptr);
    EXPECT_EQ(FailureOf([&] { return ReverseSortDescriptors(other); }), 121);
}

TEST(SortArray, SortsEachKindOfValue) {
    const double infinity = std::numeric_limits<double>::infinity();
    const CDATE day(5, 3, 2024);
    const CVALUE null, nan(std::nan(""));
    const std::tuple<std::vector<CVALUE>, const char*, const char*, OPTION> kCases[] = {
        {{2L, null, short{1}, 3.5, null, 2.0, CTIME(0, 0, 1)}, "1426053", "3052614", kExact},
        {{-1L, -2.5, 0.0, -0.0, -infinity, infinity, nan, null}, "76410235", "52301467", kExact},
        {{0.3, 0.1 + 0.2, 0.300009, 0.30002}, "0123", "3012", kExact},
        {{CDATETIME(day, CTIME(0, 0, 1)), day, CDATE(4, 3, 2024), CDATETIME(day, CTIME())}, "2130", "0132", kExact},
        {{"b", "", "Z", "\xE9", "a", null}, "512403", "304215", kExact},
        {{"12345678b", "12345678", "1234567", "12345678a"}, "2130", "0312", kExact},
        {{"b", "A", "a", "B"}, "1203", "0312", OPTION::CaseInsensitive},
        {{"f", "\xC9", "e", "d"}, "3120", "0123", OPTION::DiacriticInsensitive},
        {{_GUID{1, 0, 0, {2}}, _GUID{1, 0, 0, {1}}, _GUID{0, 9, 0, {}}}, "210", "012", kExact},
    };
    for (const auto& [values, up, down, option] : kCases) {
        OBJECTS records;
        std::ranges::transform(values, std::back_inserter(records), [](const CVALUE& value) { return Record(value); });
        for (const auto& [order, places] : {std::pair("a", up), std::pair("-a", down)}) {
            std::string sorted;
            for (const auto& record : Sorted(records, order, option)) {
                sorted += static_cast<char>('0' + (std::ranges::find(records, record) - records.begin()));
            }
            EXPECT_EQ(sorted, places) << order;
        }
    }
}

TEST(SortArray, FollowsTheRuleOfAKey) {
    using TEXTS = SORTRULE::Texts;
    using NULLS = SORTRULE::Nulls;
    const CVALUE null, nan(std::nan(""));
    const std::tuple<std::vector<CVALUE>, const char*, const char*, SORTRULE> kCases[] = {
        {{"F 10", "f 2", "F 02", null, "F \xC9t\xE9", "f 1e"}, "351204", "402153", {"a", TEXTS::Naturally}},
        {{"10", "9", "B", "a", "b", "\xE9"}, "013245", "524310", {"a", TEXTS::ByTable}},
        {{"b", null, "", "a", null}, "14230", "14032", {"a", TEXTS::ByOption, NULLS::First}},
        {{"b", null, "", "a", null}, "23014", "03214", {"", TEXTS::ByOption, NULLS::Last}},
        {{nan, null, -1L, 1L}, "0231", "3201", {"a", TEXTS::Naturally, NULLS::Last}},
        {{nan, null, -1L, 1L}, "1023", "1320", {"a", TEXTS::ByTable, NULLS::First}},
        {{"b", null, "B"}, "120", "021", {"b", TEXTS::ByTable, NULLS::Last}},  // of another key
        {{"b", null, "B"}, "120", "021", {"a", TEXTS{7}, NULLS{-1}}},          // as the default
    };
    for (const auto& [values, up, down, rule] : kCases) {
        OBJECTS records;
        std::ranges::transform(values, std::back_inserter(records), [](const CVALUE& value) { return Record(value); });
        for (const auto& [order, places] : {std::pair("a", up), std::pair("-a", down)}) {
            std::string sorted;
            for (const auto& record : ObjectsIn(SortArray(CMEMARRAY::Create(records), BUILDER(order), {{rule}}))) {
                sorted += static_cast<char>('0' + (std::ranges::find(records, record) - records.begin()));
            }
            EXPECT_EQ(sorted, places) << order << " of " << values.front();
        }
    }
}

TEST(SortArray, TakesTheFirstRuleOfAKeyAndElseTheOneOfAll) {
    using TEXTS = SORTRULE::Texts;
    constexpr SORTRULE kRules[] = {{""}, {"b", TEXTS::Naturally}, {"b"}, {"", TEXTS::ByTable}};
    const OBJECTS records = {Record("x", "10"), Record("X", "9"), Record("X", "10"), Record("X", "9")};
    EXPECT_EQ(ObjectsIn(SortArray(CMEMARRAY::Create(records), BUILDER("a;b"), kRules)),
              (OBJECTS{records[1], records[3], records[2], records[0]}));
    EXPECT_EQ(ObjectsIn(SortArray(CMEMARRAY::Create(records), BUILDER("a;b"), {{kRules[1], kRules[3]}})),
              (OBJECTS{records[1], records[3], records[0], records[2]}))
        << "x and X are equal and keep their order";
}

TEST(SortArray, RefusesWhatItCannotOrder) {
    const auto number = Record(1L);
    for (const CVALUE& other : {CVALUE("1"), CVALUE(CDATE(1, 1, 2024)), CVALUE(_GUID{}), CVALUE(number)}) {
        const auto mixed = CMEMARRAY::Create({number.Get(), nullptr, Record(other).Get()});
        EXPECT_EQ(FailureOf([&] { return SortArray(mixed, BUILDER("a")); }), 138);
        EXPECT_EQ(mixed->GetObjectAt(0), number);
    }
    const auto nested = CMEMARRAY::Create(CMEMDICTIONARY::Create("a", CMEMARRAY::Create()));
    const auto sorting = [](const CVALUE& first, const CVALUE& second) {
        return FailureOf([&] { return Sorted({Record(first), Record(second)}, "a"); });
    };
    EXPECT_EQ(sorting(1L, "1"), Saying(138, "key 'a' of element 1 ", "is a String, wanted a number"));
    EXPECT_EQ(sorting("1", CDATE(1, 1, 2024)), Saying(138, "is a Date, wanted a text"));
    EXPECT_EQ(sorting(_GUID{}, 1), Saying(138, "is a Bool, wanted a GUID"));
    EXPECT_EQ(sorting(CDATE(1, 1, 2024), _GUID{}), Saying(138, "is a Guid, wanted a date"));
    EXPECT_EQ(sorting({}, CVALUE(number)),
              Saying(138, "of element 1 ", "is an Object, wanted a value that has an order"));
    EXPECT_EQ(FailureOf([&] { return SortArray(nested, BUILDER("a")); }),
              Saying(138, "key 'a' of element 0 ", "is a CMEMARRAY, wanted a value object"));
    EXPECT_EQ(FailureOf([&] { return SortArray(CMEMARRAY::Create(CVALUEOBJECT::Create()), BUILDER("a")); }), 151);
    EXPECT_EQ(FailureOf([&] { return SortArray(nested, nested); }), Saying(121, "element 0", "is CMEMDICTIONARY"));
    EXPECT_EQ(FailureOf([&] { return SortArray(nested, CMEMARRAY::Create(nullptr)); }), Saying(121, "is null"));
    EXPECT_EQ(FailureOf([&] { return SortArray(nullptr, BUILDER("a")); }), Saying(-100, "array to sort"));

    EXPECT_EQ(ObjectsIn(SortArray(nested, nullptr)), ObjectsIn(nested));
    EXPECT_EQ(Sorted({number, nullptr}, ""), (OBJECTS{number, nullptr}));
    EXPECT_EQ(Sorted({number, nullptr}, "a;b"), (OBJECTS{nullptr, number}));
}

class BACKWARDS : public CVALUEOBJECT {
public:
    explicit BACKWARDS(const char* text) : CVALUEOBJECT(text) {}
    short CmpString(const char* left, const char* right, OPTION option) const override {
        return CVALUEOBJECT::CmpString(right, left, option);
    }
};

TEST(SortArray, LetsDerivedClassesCompareTexts) {
    const auto a = CMEMDICTIONARY::Create("x", AdoptObject(new BACKWARDS("a")));
    const auto b = CMEMDICTIONARY::Create("x", AdoptObject(new BACKWARDS("b")));
    EXPECT_EQ(Sorted({a, b, nullptr}, "x"), (OBJECTS{nullptr, b, a}));
    const OBJECTS byTable = ObjectsIn(
        SortArray(CMEMARRAY::Create({b.Get(), a.Get()}), BUILDER("x"), {{SORTRULE{"x", SORTRULE::Texts::ByTable}}}));
    EXPECT_EQ(byTable, (OBJECTS{a, b})) << "the rule decides";
}

// One rule brings two values together, in sorting and in comparing.
TEST(SortArray, RefusesAndOrdersPairsAsTheComparisonDoes) {
    const CVALUE kValues[] = {short{-5},
                              static_cast<unsigned short>(40000),
                              5L,
                              7UL,
                              CDATE(5, 3, 2024),
                              CTIME(0, 0, 6),
                              "abc",
                              5.5F,
                              6.25,
                              CDATETIME(CDATE(5, 3, 2024), CTIME(12, 0, 0)),
                              1,
                              _GUID{1, 0, 0, {}}};
    for (const CVALUE& left : kValues) {
        for (const CVALUE& right : kValues) {
            const OBJECTS records = {Record(left), Record(right)};
            int relation = 0;
            OBJECTS sorted;
            const auto compared = FailureOf([&] { relation = Relation(records[0], records[1], "a", kExact); });
            EXPECT_EQ(FailureOf([&] { sorted = Sorted(records, "a"); }).msg, compared.msg) << left << ' ' << right;
            if (!sorted.empty()) {
                EXPECT_EQ(sorted.front(), records[relation > 0 ? 1 : 0]) << left << ' ' << right;
            }
        }
    }
}

// Beside a plain sort by the value objects themselves, on values that have an order under them.
TEST(SortArray, AgreesWithTheComparisonOfValueObjects) {
    support::RANDOM random(3);
    const auto below = [&random](unsigned bound) { return static_cast<long>(random() % bound); };
    for (const OPTION option : {kExact, OPTION::CaseInsensitive, OPTION::DiacriticInsensitive}) {
        OBJECTS records;
        for (int i = 0; i < 3000; ++i) {
            std::string text(static_cast<std::size_t>(below(12)), 'e');
            std::ranges::generate(text, [&below] { return "eE\xE9z"[below(4)]; });
            const auto number = static_cast<double>(below(50)) / 4;
            records.push_back(Record(text, below(2) == 0 ? CVALUE(below(12)) : CVALUE(number)));
        }
        OBJECTS expected = records;
        std::ranges::stable_sort(expected, [option](COBJECT* left, COBJECT* right) {
            const int relation = Relation(left, right, "b", option);
            return relation != 0 ? relation > 0 : Relation(left, right, "a", option) < 0;
        });
        EXPECT_EQ(Sorted(records, "-b;a", option), expected);
        EXPECT_EQ(ObjectsIn(SortArray(CMEMARRAY::Create(records), BUILDER("-b;a"), {{SORTRULE()}}, option)), expected);
    }
}

// Numbers that are equal in chains: what the comparison tells apart must come out in its order all the same.
TEST(SortArray, NeverContradictsTheComparison) {
    support::RANDOM random(4);
    OBJECTS records(200000);
    std::ranges::generate(records, [&random] { return Record(static_cast<double>(random() % 100000) / 1e6); });
    double most = 0;
    for (const auto& record : Sorted(records, "a")) {
        const double number = ValueOf(record->GetKeyValue("a")).ToDouble();
        ASSERT_GT(number, most - 0.0000100001);
        most = std::max(most, number);
    }
}

}  // namespace
