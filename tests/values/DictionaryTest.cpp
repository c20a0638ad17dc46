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
    EXPECT_TRUE(iterator->IsEnd() != 0 && !iterator->GetCurrent());
    dictionary->SetKeyValue("z", things["h"]);
    dictionary = nullptr;
    EXPECT_EQ(iterator->GetCurrent(), things["h"]) << "kept alive";
    iterator->Next();
    iterator->Next();
    EXPECT_EQ(iterator->IsEnd(), 1);
}

TEST(DictionaryTest, ReleasesWhenItIsWhole) {
    ExpectWholeOnRelease<CDICTIONARY>(
        CMEMDICTIONARY::Create, [](CDICTIONARY& dictionary, COBJECT* object) { dictionary.SetKeyValue("m", object); },
        {[](CDICTIONARY& dictionary) { dictionary.RemoveKey("m"); },
         [](CDICTIONARY& dictionary) { dictionary.SetKeyValue("m", nullptr); },
         [](CDICTIONARY& dictionary) { dictionary.RemoveAll(); }});
}

}  // namespace
