#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CVALUEOBJECT.h>
#include <support/Failure.h>
#include <values/Thing.h>

#include <memory>

namespace {

using namespace values_test;
using namespace MLCore;
using support::FailureOf;

TEST(DictionaryTest, HoldsValuesInTheOrderOfTheKeys) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    const std::string keys[] = {"b", "\xE9", "", "Z", "ba", "b"};
    COBJECT* const values[] = {nullptr, a, b, nullptr, a, b};
    const auto dictionary = CMEMDICTIONARY::Create(keys, values, 6);
    std::string listed;
    for (const OBJECT& key : dictionary->GetKeys()) {
        listed.append("<").append(ValueOf(key).ToString());
    }
    EXPECT_EQ(listed, "<<Z<b<ba<\xE9");
    EXPECT_EQ(ElementsIn(*dictionary), (OBJECTS{b, nullptr, b, a, a}));
    EXPECT_EQ(ElementsIn(*dictionary->GetValues()), ElementsIn(*dictionary));

    EXPECT_EQ(dictionary->ContainsKey("Z"), 1) << "a null is a value";
    EXPECT_EQ(dictionary->GetKeyValue("z"), nullptr);
    EXPECT_EQ(dictionary->ContainsKey("z"), 0) << "asking adds nothing";
    dictionary->SetKeyValue("b", nullptr);
    EXPECT_EQ(dictionary->RemoveKey("ba") + dictionary->RemoveKey("ba"), 1);
    EXPECT_EQ(ElementsIn(*dictionary), (OBJECTS{b, nullptr, nullptr, a}));
    dictionary->RemoveAll();
    EXPECT_EQ(dictionary->GetCount() + a->GetUseCount() + b->GetUseCount(), 2);
    EXPECT_EQ(CMEMDICTIONARY::Create(nullptr, values, -1)->GetCount(), 0);
    EXPECT_EQ(FailureOf([&] { return CMEMDICTIONARY::Create(nullptr, values, 1); }), -100);
    EXPECT_EQ(FailureOf([&] { return CMEMDICTIONARY::Create(keys, nullptr, 1); }), -100);
}

TEST(DictionaryTest, IsAStepOfKeyPaths) {
    const OBJECT leaf = CTHING::Create();
    const auto dictionary = CMEMDICTIONARY::Create("k", leaf);
    dictionary->SetKeyPathValue("rows", CMEMARRAY::Create(CMEMDICTIONARY::Create("k", leaf), CMEMDICTIONARY::Create()));
    EXPECT_EQ(dictionary->GetKeyPathValue("rows[0].k"), leaf);
    EXPECT_EQ(dictionary->GetKeyPathValue("rows.k[1]"), nullptr);
    EXPECT_EQ(dictionary->GetKeyPathValue("no[7].matter"), nullptr);
    dictionary->SetKeyPathValue("rows[1].k", leaf);
    EXPECT_EQ(dictionary->GetKeyPathValue("rows.k[1]"), leaf);
    EXPECT_EQ(FailureOf([&] { return dictionary->GetKeyPathValue("[0]"); }), 151);
    EXPECT_EQ(FailureOf([&] { dictionary->SetKeyPathValue("no.matter", leaf); }), 151);
}

TEST(DictionaryTest, MayChangeWhileItIsWalked) {
    std::map<std::string, OBJECT> things;
    auto dictionary = CMEMDICTIONARY::Create();
    for (const char* key : {"b", "d", "f", "h"}) {
        dictionary->SetKeyValue(key, things[key] = CTHING::Create());
    }
    const std::unique_ptr<COBJECTITERATOR> iterator(dictionary->CreateValueIterator());
    dictionary->RemoveKey("b");
    dictionary->SetKeyValue("c", nullptr);
    dictionary->RemoveKey("c");
    EXPECT_EQ(iterator->GetCurrent(), things["d"]);
    iterator->Next();
    EXPECT_EQ(iterator->GetCurrent(), things["d"]) << "the one that follows what was removed";
    dictionary->SetKeyValue("e", things["b"]);
    iterator->Next();
    EXPECT_EQ(iterator->GetCurrent(), things["b"]);
    dictionary->RemoveAll();
    EXPECT_EQ(iterator->IsEnd(), 1);
    EXPECT_FALSE(iterator->GetCurrent());
    dictionary->SetKeyValue("z", things["h"]);
    dictionary = nullptr;
    EXPECT_EQ(iterator->GetCurrent(), things["h"]) << "kept alive";
    iterator->Next();
    iterator->Next();
    EXPECT_EQ(iterator->IsEnd(), 1);
}

// Few entries are held in another way than many.
TEST(DictionaryTest, IsTheSameWithFewAndManyEntries) {
    std::map<std::string, OBJECT> expected;
    const auto dictionary = CMEMDICTIONARY::Create("k", nullptr);
    expected["k"] = nullptr;
    const std::unique_ptr<COBJECTITERATOR> iterator(dictionary->CreateValueIterator());
    const auto expectSame = [&] {
        OBJECTS objects;
        for (const auto& [key, object] : expected) {
            objects.push_back(object);
            EXPECT_EQ(dictionary->GetKeyValue(key), object);
        }
        EXPECT_EQ(ElementsIn(*dictionary), objects);
        EXPECT_EQ(iterator->GetCurrent(), expected.lower_bound("k")->second);
        EXPECT_EQ(dictionary->ContainsKey("none") + dictionary->RemoveKey("none"), 0);
    };
    for (int i = 0; i < 40; ++i) {  // in front of the iterator and behind it, in no order
        const std::string key = {static_cast<char>('0' + i * 37 % 75), 'x'};
        dictionary->SetKeyValue(key, expected[key] = CTHING::Create());
        expectSame();
    }
    EXPECT_EQ(CTHING::living, 40);
    iterator->Next();
    EXPECT_EQ(iterator->GetCurrent(), expected.upper_bound("k")->second);
    while (expected.size() > 1) {
        const std::string key = expected.begin()->first == "k" ? expected.rbegin()->first : expected.begin()->first;
        EXPECT_EQ(dictionary->RemoveKey(key), 1);
        expected.erase(key);
    }
    EXPECT_EQ(dictionary->GetCount(), 1);
    EXPECT_EQ(CTHING::living, 0);
}

TEST(DictionaryTest, ReleasesWhenItIsWhole) {
    ExpectWholeOnRelease<CDICTIONARY>(
        CMEMDICTIONARY::Create, [](CDICTIONARY& dictionary, COBJECT* object) { dictionary.SetKeyValue("m", object); },
        {[](CDICTIONARY& dictionary) { dictionary.RemoveKey("m"); },
         [](CDICTIONARY& dictionary) { dictionary.SetKeyValue("m", nullptr); },
         [](CDICTIONARY& dictionary) { dictionary.RemoveAll(); }});
}

}  // namespace
