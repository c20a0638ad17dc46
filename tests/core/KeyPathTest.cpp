#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/CKEYBUILDER.h>
#include <MLCore/core/CKEYPARSER.h>
#include <MLCore/core/ClassDeclaration.h>
#include <gtest/gtest.h>
#include <support/Failure.h>
#include <support/Random.h>

#include <climits>
#include <map>
#include <string>
#include <vector>

namespace keypathtest {

using namespace MLCore;
using OBJECT = CSHAREOBJECTPTR<COBJECT>;

/// Knows the keys that it is made with. "made" gives a new record that nobody else owns.
class CRECORD : public COBJECT {
    MLCORE_CLASS(CRECORD, COBJECT)
public:
    explicit CRECORD(std::map<std::string, OBJECT> its) : values(std::move(its)) {}

    OBJECT GetKeyValue(const std::string& key) override {
        if (key == "made") {
            return AdoptObject(new CRECORD(values));
        }
        return values.count(key) != 0 ? values[key] : COBJECT::GetKeyValue(key);
    }
    void SetKeyValue(const std::string& key, COBJECT* value) override {
        static_cast<void>(GetKeyValue(key));
        values[key] = value;
    }

    std::map<std::string, OBJECT> values;
};

class CROW : public COBJECT, public CINDEXEDACCESS {
    MLCORE_CLASS(CROW, COBJECT, CINDEXEDACCESS)
public:
    explicit CROW(std::vector<OBJECT> its) : elements(std::move(its)) {}

    long GetCount() const override { return static_cast<long>(elements.size()); }
    OBJECT GetObjectAt(long index) const override { return elements.at(static_cast<std::size_t>(index)); }
    void SetObjectAt(long index, COBJECT* object) override { elements.at(static_cast<std::size_t>(index)) = object; }

    std::vector<OBJECT> elements;
};

/// Changes the path by which it is reached, and notes what it is asked for.
class CPATHCHANGER : public COBJECT {
    MLCORE_CLASS(CPATHCHANGER, COBJECT)
public:
    OBJECT GetKeyValue(const std::string& key) override {
        asked += key + ' ';
        path = "first.broken";
        return OBJECT(this);
    }
    void SetKeyValue(const std::string& key, COBJECT*) override { asked += key + '!'; }

    std::string path = "first.second";
    std::string asked;
};

MLCORE_REGISTER_CLASS(CPATHCHANGER)
MLCORE_REGISTER_CLASS(CRECORD)
MLCORE_REGISTER_CLASS(CROW)

}  // namespace keypathtest

namespace {

using namespace keypathtest;
using support::FailureOf;
using STEPS = std::vector<CKEYPARSER::STEP>;

OBJECT Record(std::map<std::string, OBJECT> values) { return AdoptObject<COBJECT>(new CRECORD(std::move(values))); }
OBJECT Row(std::vector<OBJECT> elements) { return AdoptObject<COBJECT>(new CROW(std::move(elements))); }

void Add(CKEYBUILDER& builder, const CKEYPARSER::STEP& step) {
    step.isIndex ? builder.AddIndex(step.index) : builder.AddKey(step.name);
}

// Paths that no parser accepts.
const std::string kMalformed[] = {
    "", ".", "a.", ".a", "a..b", "[", "]", "[]", "a[", "a]", "a[]", "a[1", "a[1]b", "[0]b", "a[-1]", "a[+1]", "a[ 1]",
    "a[1 ]", "a[0x1]", "a[1.5]", "a[1][", "a[[0]]", "a[0]]", "a.[", "a[b]", "a[\xB2]", "a[1,2]", "a]0[", "a[0].",
    "a[0]..b", "null..leaf", std::string("a[0\0]", 5),
    // just too large, and what 32 or 64 bits would take for 0
    "a[2147483648]", "a[4294967296]", "a[18446744073709551616]", "a[" + std::string(1000, '9') + "]"};

TEST(KeyPathTest, Parses) {
    // A builder refuses names with delimiters, so only the right steps give the path again.
    const auto rebuilt = [](const std::string& path) {
        CKEYBUILDER builder;
        const CKEYPARSER parser(path);
        for (const CKEYPARSER::STEP& step : parser.GetAccessPath()) {
            Add(builder, step);
        }
        return builder.GetPath();
    };
    for (const std::string& path : {std::string("a"), std::string("a.b.c"), std::string("a[10][2].b"),
                                    std::string("[3][4].a"), std::string(" a . 0 "), std::string("a\0b", 3)}) {
        EXPECT_EQ(rebuilt(path), path);
    }
    EXPECT_EQ(rebuilt("a[007][00000000000000000000001]"), "a[7][1]");
    for (const std::string& path : kMalformed) {
        EXPECT_EQ(FailureOf([&] { CKEYPARSER parser(path); }), 151) << path.substr(0, 40);
    }
}

TEST(KeyPathTest, WhatIsBuiltIsReadBack) {
    support::RANDOM random(151);
    for (int round = 0; round < 2000; ++round) {
        CKEYBUILDER builder;
        STEPS steps;
        for (auto left = 1 + random() % 6; left > 0; --left) {
            if (random() % 3 == 0) {
                steps.push_back({true, {}, static_cast<long>(random() % 2147483648U >> random() % 31)});
            } else {
                std::string name(1 + random() % 8, '\0');
                for (char& character : name) {
                    const char any = static_cast<char>(random() % 256);
                    character = any == '.' || any == '[' || any == ']' ? 'x' : any;
                }
                steps.push_back({false, name, 0});
            }
            Add(builder, steps.back());
        }
        ASSERT_EQ(CKEYPARSER(builder.GetPath()).GetAccessPath(), steps) << builder.GetPath();
    }
}

TEST(KeyPathTest, BuildsTheToldForm) {
    CKEYBUILDER builder;
    EXPECT_EQ(builder.GetPath(), "");
    builder.AddKey("n");
    builder.AddKey(builder.GetPath());
    EXPECT_EQ(builder.GetPath(), "n.n");
    builder = {};
    builder.AddKey("orders");
    builder.AddIndex(2);
    builder.AddIndex(2147483647);
    builder.AddKey("amount");
    for (const char* name : {"", ".", "a.b", "[", "a]"}) {
        EXPECT_EQ(FailureOf([&] { builder.AddKey(name); }), 151) << name;
    }
    EXPECT_EQ(FailureOf([&] { builder.AddIndex(-1); }), 151);
#if LONG_MAX > 2147483647
    EXPECT_EQ(FailureOf([&] { builder.AddIndex(2147483648L); }), 151);
#endif
    EXPECT_EQ(builder.GetPath(), "orders[2][2147483647].amount");
}

TEST(KeyPathTest, ReadsAndWrites) {
    const OBJECT leaf = Record({});
    const OBJECT inner = Record({{"leaf", leaf}, {"null", nullptr}});
    const OBJECT row = Row({inner, nullptr, Row({leaf})});
    const OBJECT root = Record({{"a", inner}, {"row", row}, {"null", nullptr}, {"", leaf}});
    const struct {
        COBJECT* value;
        std::vector<const char*> paths;
    } kRows[] = {{inner, {"a", "row[0]", "made.a"}},
                 {leaf, {"a.leaf", "row[0].leaf", "row[2][0]", "made.made.row[0].leaf"}},
                 // a null on the way ends the walk, whatever is still to come
                 {nullptr, {"null", "row[1]", "null.leaf", "null[5].unknown", "row[1].leaf", "a.null.x.y"}}};
    for (const auto& line : kRows) {
        for (const char* path : line.paths) {
            EXPECT_EQ(root->GetKeyPathValue(path).Get(), line.value) << path;
        }
    }
    EXPECT_EQ(row->GetKeyPathValue("[2][0]"), leaf);

    const OBJECT value = Record({});
    for (const char* path : {"a", "a.leaf", "null", "row[0].leaf", "row[1]", "row[2][0]"}) {
        const OBJECT before = root->GetKeyPathValue(path);
        root->SetKeyPathValue(path, value);
        EXPECT_EQ(root->GetKeyPathValue(path), value) << path;
        EXPECT_EQ(value->GetUseCount(), 2) << path;
        root->SetKeyPathValue(path, before);
    }
    row->SetKeyPathValue("[1]", value);
    EXPECT_EQ(root->GetKeyPathValue("row[1]"), value);
    root->SetKeyPathValue("row[1]", nullptr);
    root->SetKeyPathValue("made.a", value);
    EXPECT_EQ(value->GetUseCount(), 1) << "set in a record that has gone";

    std::vector<std::string> refused(std::begin(kMalformed), std::end(kMalformed));
    refused.insert(refused.end(), {"unknown", "a.unknown", "A", "row[3]", "row[2147483647]", "row[2][1]", "a[0]", "[0]",
                                   "row.leaf", "row[0][0]", "made.unknown"});
    for (const std::string& path : refused) {
        EXPECT_EQ(FailureOf([&] { return root->GetKeyPathValue(path); }), 151) << path.substr(0, 40);
        EXPECT_EQ(FailureOf([&] { root->SetKeyPathValue(path, value); }), 151) << path.substr(0, 40);
    }
    for (const char* path : {"null.leaf", "null[0]", "row[1].leaf"}) {
        EXPECT_EQ(FailureOf([&] { root->SetKeyPathValue(path, value); }), 151) << "nothing to set " << path << " in";
    }
    EXPECT_EQ(root->GetUseCount() + value->GetUseCount(), 2);
    EXPECT_EQ(row->GetUseCount(), 2);
}

TEST(KeyPathTest, APathMayChangeOnTheWay) {
    CPATHCHANGER object;
    EXPECT_EQ(object.GetKeyPathValue(object.path), &object);
    object.path = "first.second";
    object.SetKeyPathValue(object.path, nullptr);
    EXPECT_EQ(object.asked, "first second first second!");
}

}  // namespace
