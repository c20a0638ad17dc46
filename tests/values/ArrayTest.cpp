#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/predicates/CPREDICATE.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CMEMSET.h>
#include <support/Failure.h>
#include <values/Thing.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <ranges>

namespace values_test {

using namespace MLCore;

class CASKING : public CPREDICATE {
    MLCORE_CLASS(CASKING, CPREDICATE)
public:
    explicit CASKING(std::function<int(COBJECT*)> its) : CPREDICATE(PredicateType::Value), question(std::move(its)) {}
    int Evaluate(COBJECT* object, CDICTIONARY& variables) const override {
        return object == variables.GetKeyValue("wanted") ? 1 : 0;
    }
    int Evaluate(COBJECT* object) const override { return question(object); }
    std::function<int(COBJECT*)> question;
};

/// An array of another class, which defines only what it must.
class CLEASTARRAY : public CARRAY {
    MLCORE_CLASS(CLEASTARRAY, CARRAY)
public:
    long GetCount() const override { return static_cast<long>(mObjects.size()); }
    OBJECT GetObjectAt(long index) const override { return mObjects.at(static_cast<std::size_t>(index)); }
    void SetObjectAt(long index, COBJECT* object) override { mObjects.at(static_cast<std::size_t>(index)) = object; }
    void AddObject(COBJECT* object) override { mObjects.emplace_back(object); }
    void InsertObject(long index, COBJECT* object) override { mObjects.emplace(mObjects.begin() + index, object); }
    void RemoveObjectAt(long index) override { mObjects.erase(mObjects.begin() + index); }
    void RemoveAll() override { mObjects.clear(); }

private:
    std::vector<OBJECT> mObjects;
};

/// An array with its own way to filter.
class CFILTERINGARRAY : public CLEASTARRAY {
    MLCORE_CLASS(CFILTERINGARRAY, CLEASTARRAY)
public:
    using CARRAY::Filter;
    CSHAREOBJECTPTR<CARRAY> Filter(CPREDICATE*) override { return CMEMARRAY::Create(nullptr); }
};

MLCORE_REGISTER_CLASS(CTHING)
MLCORE_REGISTER_CLASS(CASKING)
MLCORE_REGISTER_CLASS(CLEASTARRAY)
MLCORE_REGISTER_CLASS(CFILTERINGARRAY)

}  // namespace values_test

namespace {

using namespace values_test;
using support::FailureOf;

static_assert(std::ranges::input_range<const CARRAY>);

CSHAREOBJECTPTR<CPREDICATE> Asking(std::function<int(COBJECT*)> question) {
    return AdoptObject<CPREDICATE>(new CASKING(std::move(question)));
}

TEST(ArrayTest, IsCreatedFromWhatIsGiven) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    COBJECT* const both[] = {a, nullptr, b};
    COBJECT* const* const none = nullptr;
    const CSHAREOBJECTPTR<CARRAY> arrays[] = {CMEMARRAY::Create(),
                                              CMEMARRAY::Create(LONG_MIN),
                                              CMEMARRAY::Create(LONG_MAX),
                                              CMEMARRAY::Create(none, 0),
                                              CMEMARRAY::Create(both, LONG_MIN),
                                              CMEMARRAY::Create(a),
                                              CMEMARRAY::Create(a, b),
                                              CMEMARRAY::Create({b, a, b}),
                                              CMEMARRAY::Create(both, 3),
                                              CMEMARRAY::Create(std::vector<OBJECT>{b})};
    const OBJECTS expected[] = {{}, {}, {}, {}, {}, {a}, {a, b}, {b, a, b}, {a, nullptr, b}, {b}};
    for (std::size_t row = 0; row < std::size(arrays); ++row) {
        EXPECT_EQ(arrays[row]->GetUseCount(), 1);
        EXPECT_EQ(ElementsIn(*arrays[row]), expected[row]) << row;
        EXPECT_EQ(arrays[row]->First(), expected[row].empty() ? nullptr : expected[row].front());
        EXPECT_EQ(arrays[row]->Last(), expected[row].empty() ? nullptr : expected[row].back());
    }
    EXPECT_EQ(FailureOf([&] { return CMEMARRAY::Create(none, 1); }), -100);
    for (const char* name : {"CMEMARRAY", "CMEMDICTIONARY", "CMEMSET"}) {
        EXPECT_STREQ(COBJECTFACTORY::GetInstance()->CreateObjectFromIdentifier(name)->GetClassName(), name);
    }
}

TEST(ArrayTest, ChangesInPlace) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    const auto array = CMEMARRAY::Create(a);
    array->InsertObject(1, b);
    array->InsertObject(0, nullptr);
    array->AddObject(b);
    EXPECT_EQ(ElementsIn(*array), (OBJECTS{nullptr, a, b, b}));
    EXPECT_EQ(array->GetObjectIndex(b) + array->ExistObject(a), 3);
    array->RemoveObjectAt(1);
    array->SetObjectAt(0, b);
    for (const long index : {-1L, 3L, LONG_MIN, LONG_MAX}) {
        EXPECT_EQ(FailureOf([&] { return array->GetObjectAt(index); }), 151) << index;
        EXPECT_EQ(FailureOf([&] { array->SetObjectAt(index, a); }), 151) << index;
        EXPECT_EQ(FailureOf([&] { array->RemoveObjectAt(index); }), 151) << index;
        EXPECT_EQ(FailureOf([&] { array->InsertObject(index + (index == 3), a); }), 151) << index;
    }
    EXPECT_EQ(ElementsIn(*array), (OBJECTS{b, b, b}));
    EXPECT_EQ(array->GetObjectIndex(a) + array->ExistObject(a), -1);
    EXPECT_EQ(a->GetUseCount() + b->GetUseCount(), 1 + 4);
}

void ExpectWalkedWhileItChanges(CSHAREOBJECTPTR<CARRAY> array) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create(), c = CTHING::Create();
    for (const OBJECT& object : {a, b, a, b}) {
        array->AddObject(object);
    }
    EXPECT_EQ(array->GetObjectIndex(b) + 10 * array->ExistObject(b), 11);
    EXPECT_EQ(array->GetObjectIndex(a) + 10 * array->ExistObject(a), 10);
    EXPECT_EQ(array->GetObjectIndex(c) + 10 * array->ExistObject(c), -1);
    EXPECT_EQ(array->First(), a);
    EXPECT_EQ(array->Last(), b);
    int steps = 0;
    for (const OBJECT& element : array) {
        EXPECT_EQ(element, a) << "an index, whatever moves under it";
        array->RemoveObjectAt(0), ++steps;
    }
    EXPECT_EQ(steps, 2);
    const std::unique_ptr<COBJECTITERATOR> iterator(array->CreateIterator());
    iterator->Next();
    array->RemoveAll();
    iterator->Next();
    EXPECT_EQ(iterator->IsEnd(), 1);
    EXPECT_FALSE(iterator->GetCurrent());
    array->AddObject(a);
    array->AddObject(b);
    array = nullptr;
    EXPECT_EQ(iterator->GetCurrent(), b) << "kept alive, on its index";
}

TEST(ArrayTest, MayChangeWhileItIsWalked) {
    ExpectWalkedWhileItChanges(CMEMARRAY::Create());
    ExpectWalkedWhileItChanges(AdoptObject<CARRAY>(new CLEASTARRAY));
}

TEST(ArrayTest, ReleasesWhenItIsWhole) {
    ExpectWholeOnRelease<CARRAY>(
        CMEMARRAY::Create, [](CARRAY& array, COBJECT* object) { array.AddObject(object); },
        {[](CARRAY& array) { array.RemoveObjectAt(0); }, [](CARRAY& array) { array.RemoveAll(); },
         [](CARRAY& array) { array.SetObjectAt(0, nullptr); }});
}

TEST(ArrayTest, FiltersByPredicate) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    auto array = CMEMARRAY::Create({a, nullptr, b, a});
    const OBJECTS before = ElementsIn(*array);
    EXPECT_EQ(ElementsIn(*array->Filter(nullptr)), before);
    EXPECT_EQ(ElementsIn(*array->Filter(Asking([&](COBJECT* object) { return object == a ? -5 : 0; }))),
              (OBJECTS{a, a}));
    const auto failing = Asking([](COBJECT* object) { return object->SetKeyValue("unknown", nullptr), 1; });
    EXPECT_EQ(FailureOf([&] { return array->Filter(failing); }), 151);
    EXPECT_EQ(ElementsIn(*array), before);
    const auto growing = Asking([&](COBJECT*) { return array->AddObject(b), 1; });
    EXPECT_EQ(ElementsIn(*array->Filter(growing)), before);
    EXPECT_EQ(array->Filter(Asking([&](COBJECT*) { return array = nullptr, 1; }))->GetCount(), 8);
    EXPECT_EQ(a->GetUseCount(), 1);
}

TEST(ArrayTest, FiltersWithVariables) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    const auto array = CMEMARRAY::Create({a, nullptr, b, a});
    const auto isB = Asking([&](COBJECT* object) { return object == b; });
    const auto variables = CMEMDICTIONARY::Create("wanted", a);
    EXPECT_EQ(ElementsIn(*array->Filter(isB, variables)), (OBJECTS{a, a}));
    EXPECT_EQ(ElementsIn(*array->Filter(isB, nullptr)), (OBJECTS{b}));
    EXPECT_EQ(array->Filter(nullptr, variables)->GetCount(), 4);
    const auto own = AdoptObject(new CFILTERINGARRAY);
    own->AddObject(a);
    EXPECT_EQ(ElementsIn(*own->Filter(isB, nullptr)), (OBJECTS{nullptr})) << "by its own Filter(predicate)";
    EXPECT_EQ(ElementsIn(*own->Filter(nullptr, variables)), (OBJECTS{nullptr})) << "by its own Filter(predicate)";
    EXPECT_EQ(ElementsIn(*own->Filter(isB, variables)), (OBJECTS{a}));
}

TEST(ArrayTest, FiltersByCallable) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    auto array = AdoptObject<CARRAY>(new CLEASTARRAY);
    for (const OBJECT& object : {a, OBJECT(), b, a}) {
        array->AddObject(object);
    }
    OBJECTS asked;
    const auto isKept = [&](COBJECT* object) { return asked.push_back(object), object == a ? -5 : 0; };
    EXPECT_EQ(ElementsIn(*array->FilterIf(isKept)), (OBJECTS{a, a}));
    EXPECT_EQ(asked, (OBJECTS{a, nullptr, b, a})) << "each once, in order";
    const auto growing = [&](COBJECT*) { return array->AddObject(b), true; };
    EXPECT_EQ(ElementsIn(*array->FilterIf(growing)), (OBJECTS{a, nullptr, b, a}));
    EXPECT_THROW(static_cast<void>(array->FilterIf([](COBJECT*) -> bool { throw 5; })), int);
    EXPECT_EQ(array->GetCount(), 8);
    EXPECT_EQ(array->FilterIf([&](COBJECT*) { return array = nullptr, true; })->GetCount(), 8);
    EXPECT_EQ(a->GetUseCount(), 1);
}

TEST(ArrayTest, MapsKeysOverItsElements) {
    const OBJECT one = CTHING::Create(), two = CTHING::Create();
    const auto x = CTHING::Create({{"k", one}}), y = CTHING::Create({{"k", nullptr}});
    const auto array = CMEMARRAY::Create({x, nullptr, y, CMEMARRAY::Create(x, nullptr), CMEMSET::Create(x)});
    for (const char* path : {"k[0]", "[0].k", "k[3][0]", "[4].k[0]"}) {
        EXPECT_EQ(array->GetKeyPathValue(path), one) << path;
    }
    for (const char* path : {"k[1]", "k[2]", "[1]", "k[3][1]"}) {
        EXPECT_EQ(array->GetKeyPathValue(path), nullptr) << path;
    }
    for (const char* path : {"k[5]", "[5]", "unknown", "[4][0]", "[0][0]"}) {
        EXPECT_EQ(FailureOf([&] { return array->GetKeyPathValue(path); }), 151) << path;
    }
    const auto pair = CMEMARRAY::Create(x, y);
    const auto gap = CMEMARRAY::Create({x, y, nullptr});
    const std::pair<OBJECT, int> kRefused[] = {
        {nullptr, -100}, {one, -100}, {CMEMSET::Create(one, two), -100}, {pair, 151}};
    for (const auto& row : kRefused) {
        EXPECT_EQ(FailureOf([&] { gap->SetKeyValue("k", row.first); }), row.second);
    }
    EXPECT_EQ(FailureOf([&] { gap->SetKeyValue("k", CMEMARRAY::Create({two, two, two})); }), 151) << "a null to set";
    EXPECT_EQ(x->properties["k"], one);
    // Elements that change their array, and the array of values, when they are asked.
    const auto news = CMEMARRAY::Create({nullptr, two, one});
    x->onAccess = [&] { pair->RemoveAll(), news->RemoveAll(); };
    pair->SetKeyPathValue("k", news);
    EXPECT_FALSE(x->properties["k"]);
    EXPECT_EQ(y->properties["k"], two);
    CMEMSET::Create(y, x)->SetKeyValue("k", CMEMARRAY::Create(one, two));
    EXPECT_EQ(x->properties["k"], two) << "in the order of the set";
    EXPECT_EQ(y->properties["k"], one) << "in the order of the set";
}

TEST(ArrayTest, MapsThrough256Levels) {
    const auto leaf = CTHING::Create({{"k", nullptr}});
    OBJECT nested = leaf;
    OBJECT values = nested;
    for (int level = 1; level <= 257; ++level) {
        nested = level % 2 != 0 ? OBJECT(CMEMARRAY::Create(nested)) : OBJECT(CMEMSET::Create(nested));
        values = CMEMARRAY::Create(values);
        EXPECT_EQ(FailureOf([&] { return nested->GetKeyValue("k"); }), level <= 256 ? 0 : 151) << level;
        EXPECT_EQ(FailureOf([&] { nested->SetKeyValue("k", values); }), level <= 256 ? 0 : 151) << level;
    }
    const auto endless = CMEMARRAY::Create();
    endless->AddObject(endless);
    EXPECT_EQ(FailureOf([&] { return endless->GetKeyValue("k"); }), 151);
    endless->RemoveAll();
    leaf->properties.clear();
}

}  // namespace
