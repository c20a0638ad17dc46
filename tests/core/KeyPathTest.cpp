#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/CKEYBUILDER.h>
#include <MLCore/core/CKEYPARSER.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/FailureChecks.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <climits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace keypathtest {

using namespace MLCore;
using OBJECT = CSHAREOBJECTPTR<COBJECT>;

/// Knows the keys that it is made with. "made" gives a new record that nobody else owns.
class CRECORD : public COBJECT {
    MLCORE_CLASS(CRECORD, COBJECT)
public:
    explicit CRECORD(std::map<std::string, OBJECT> values) : mValues(std::move(values)) {}

    OBJECT GetKeyValue(const std::string& key) override {
        if (key == "made") {
            return AdoptObject(new CRECORD(mValues));
        }
        const auto found = mValues.find(key);
        return found != mValues.end() ? found->second : COBJECT::GetKeyValue(key);
    }
    void SetKeyValue(const std::string& key, COBJECT* value) override {
        const auto found = mValues.find(key);
        if (found == mValues.end()) {
            COBJECT::SetKeyValue(key, value);
        }
        found->second = value;
    }

private:
    std::map<std::string, OBJECT> mValues;
};

class CROW : public COBJECT, public CINDEXEDACCESS {
    MLCORE_CLASS(CROW, COBJECT, CINDEXEDACCESS)
public:
    explicit CROW(std::vector<OBJECT> elements) : mElements(std::move(elements)) {}

    long GetCount() const override { return static_cast<long>(mElements.size()); }
    OBJECT GetObjectAt(long index) const override { return mElements.at(static_cast<std::size_t>(index)); }
    void SetObjectAt(long index, COBJECT* object) override { mElements.at(static_cast<std::size_t>(index)) = object; }

private:
    std::vector<OBJECT> mElements;
};

MLCORE_REGISTER_CLASS(CRECORD)
MLCORE_REGISTER_CLASS(CROW)

}  // namespace keypathtest

namespace {

using namespace keypathtest;
using support::FailureOf;
using STEP = CKEYPARSER::STEP;
using STEPS = std::vector<STEP>;

OBJECT Record(std::map<std::string, OBJECT> values) { return AdoptObject<COBJECT>(new CRECORD(std::move(values))); }
OBJECT Row(std::vector<OBJECT> elements) { return AdoptObject<COBJECT>(new CROW(std::move(elements))); }

STEP Key(std::string name) { return {false, std::move(name), 0}; }
STEP Index(long index) { return {true, {}, index}; }

// Paths that no parser accepts.
const std::string kMalformed[] = {
    "", ".", "a.", ".a", "a..b", "[", "]", "[]", "a[", "a]", "a[]", "a[1", "a[1]b", "[0]b", "a[-1]", "a[+1]", "a[ 1]",
    "a[1 ]", "a[0x1]", "a[1.5]", "a[1][", "a[[0]]", "a[0]]", "a.[", "a[b]", "a[\xB2]", "a[1,2]", "a]0[", "a[0].",
    "a[0]..b", std::string("a[0\0]", 5),
    // just too large, and what 32 or 64 bits would take for 0
    "a[2147483648]", "a[4294967296]", "a[18446744073709551616]", "a[" + std::string(1000, '9') + "]"};

TEST(KeyPathTest, Parses) {
    const std::string zero("a\0b", 3);
    const struct {
        std::string path;
        STEPS steps;
    } kRows[] = {{"a", {Key("a")}},
                 {"a.b.c", {Key("a"), Key("b"), Key("c")}},
                 {"a[0]", {Key("a"), Index(0)}},
                 {"a[10][2].b", {Key("a"), Index(10), Index(2), Key("b")}},
                 {"[3]", {Index(3)}},
                 {"[3][4].a", {Index(3), Index(4), Key("a")}},
                 {"a[007]", {Key("a"), Index(7)}},
                 {"a[2147483647]", {Key("a"), Index(2147483647)}},
                 {"a[00000000000000000000001]", {Key("a"), Index(1)}},
                 {" a . 0 ", {Key(" a "), Key(" 0 ")}},
                 {"\xE9t\xE9", {Key("\xE9t\xE9")}},
                 {zero, {Key(zero)}}};
    for (const auto& row : kRows) {
        EXPECT_EQ(CKEYPARSER(row.path).GetAccessPath(), row.steps) << row.path;
    }
    for (const std::string& path : kMalformed) {
        EXPECT_EQ(FailureOf([&] { CKEYPARSER parser(path); }), 151) << path.substr(0, 40);
    }
}

TEST(KeyPathTest, WhatIsBuiltIsReadBack) {
    std::mt19937 random(20240305);
    for (int round = 0; round < 2000; ++round) {
        CKEYBUILDER builder;
        STEPS steps;
        for (auto left = 1 + random() % 6; left > 0; --left) {
            if (random() % 3 == 0) {
                steps.push_back(Index(static_cast<long>(random() % 2147483648U >> random() % 31)));
                builder.AddIndex(steps.back().index);
            } else {
                std::string name(1 + random() % 8, '\0');
                for (char& character : name) {
                    do {
                        character = static_cast<char>(random() % 256);
                    } while (character == '.' || character == '[' || character == ']');
                }
                builder.AddKey(name);
                steps.push_back(Key(name));
            }
        }
        ASSERT_EQ(CKEYPARSER(builder.GetPath()).GetAccessPath(), steps) << builder.GetPath();
    }
}

TEST(KeyPathTest, BuildsTheToldForm) {
    CKEYBUILDER builder;
    EXPECT_EQ(builder.GetPath(), "");
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

TEST(KeyPathTest, Reads) {
    const OBJECT leaf = Record({});
    const OBJECT inner = Record({{"leaf", leaf}, {"null", nullptr}});
    const OBJECT row = Row({inner, nullptr, Row({leaf})});
    const OBJECT root = Record({{"a", inner}, {"row", row}, {"null", nullptr}, {"", leaf}});
    const struct {
        COBJECT* start;
        const char* path;
        COBJECT* value;
    } kRows[] = {{root, "a", inner},
                 {root, "a.leaf", leaf},
                 {root, "row", row},
                 {root, "row[0]", inner},
                 {root, "row[0].leaf", leaf},
                 {root, "row[2][0]", leaf},
                 {row, "[0].leaf", leaf},
                 {row, "[2][0]", leaf},
                 {root, "made.a.leaf", leaf},
                 {root, "made.made.row[0].made.leaf", leaf},
                 {root, "null", nullptr},
                 {root, "row[1]", nullptr},
                 // a null on the way ends the walk, whatever is still to come
                 {root, "null.leaf", nullptr},
                 {root, "null[5].unknown", nullptr},
                 {root, "row[1].leaf", nullptr},
                 {root, "a.null.x.y", nullptr}};
    for (const auto& line : kRows) {
        EXPECT_EQ(line.start->GetKeyPathValue(line.path).Get(), line.value) << line.path;
    }
    for (const char* path : {"unknown", "a.unknown", "A", "row[3]", "row[2147483647]", "row[2][1]", "a[0]", "[0]",
                             "row.leaf", "row[0][0]", "null..leaf", "made.unknown"}) {
        EXPECT_EQ(FailureOf([&] { return root->GetKeyPathValue(path); }), 151) << path;
    }
    for (const std::string& path : kMalformed) {
        EXPECT_EQ(FailureOf([&] { return root->GetKeyPathValue(path); }), 151) << path.substr(0, 40);
    }
    EXPECT_EQ(root->GetUseCount(), 1);
    EXPECT_EQ(row->GetUseCount(), 2);
}

TEST(KeyPathTest, Writes) {
    const OBJECT inner = Record({{"leaf", nullptr}});
    const OBJECT row = Row({inner, nullptr, Row({nullptr})});
    const OBJECT root = Record({{"a", inner}, {"row", row}, {"null", nullptr}});
    const OBJECT value = Record({});
    for (const char* path : {"a", "a.leaf", "null", "row[0].leaf", "row[1]", "row[2][0]"}) {
        const OBJECT before = root->GetKeyPathValue(path);
        root->SetKeyPathValue(path, value);
        EXPECT_EQ(root->GetKeyPathValue(path), value) << path;
        EXPECT_EQ(value->GetUseCount(), 2) << path;
        root->SetKeyPathValue(path, before);
        EXPECT_EQ(value->GetUseCount(), 1) << path;
    }
    row->SetKeyPathValue("[1]", value);
    EXPECT_EQ(root->GetKeyPathValue("row[1]"), value);
    root->SetKeyPathValue("row[1]", nullptr);
    root->SetKeyPathValue("made.a", value);
    EXPECT_EQ(value->GetUseCount(), 1) << "set in a record that has gone";

    for (const char* path : {"unknown", "a.unknown", "null.leaf", "null[0]", "row[1].leaf", "row[3]", "row[2][1]",
                             "a[0]", "row.leaf", "[0]"}) {
        EXPECT_EQ(FailureOf([&] { root->SetKeyPathValue(path, value); }), 151) << path;
    }
    for (const std::string& path : kMalformed) {
        EXPECT_EQ(FailureOf([&] { root->SetKeyPathValue(path, value); }), 151) << path.substr(0, 40);
    }
    EXPECT_EQ(value->GetUseCount(), 1);
    EXPECT_EQ(root->GetKeyPathValue("row"), row);
}

}  // namespace
