#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMSET.h>
#include <support/Failure.h>
#include <support/Random.h>
#include <values/Thing.h>

#include <algorithm>
#include <memory>

namespace {

using namespace values_test;
using namespace MLCore;
using support::FailureOf;

TEST(SetTest, HoldsEachObjectOnce) {
    const OBJECT a = CTHING::Create(), b = CTHING::Create();
    COBJECT* const some[] = {b, nullptr, a, b};
    COBJECT* const* const none = nullptr;
    const auto array = CMEMARRAY::Create(some, 4);
    const CSHAREOBJECTPTR<CSET> sets[] = {
        CMEMSET::Create(),        CMEMSET::Create(none, 0), CMEMSET::Create(some, -1),
        CMEMSET::Create(a),       CMEMSET::Create(b, b),    CMEMSET::Create({b, a, nullptr, b}),
        CMEMSET::Create(some, 4), CMEMSET::Create(array),   CMEMSET::Create(OBJECT(array))};
    const OBJECTS expected[] = {{}, {}, {}, {a}, {b}, {b, a}, {b, a}, {b, a}, {array}};
    for (std::size_t row = 0; row < std::size(sets); ++row) {
        EXPECT_EQ(sets[row]->GetUseCount(), 1);
        EXPECT_EQ(ElementsIn(*sets[row]), expected[row]) << row;
        EXPECT_EQ(ElementsIn(*sets[row]->GetObjects()), expected[row]) << row;
        EXPECT_EQ(sets[row]->AddObject(nullptr) + sets[row]->ContainsObject(nullptr), 0);
    }
    EXPECT_EQ(FailureOf([&] { return CMEMSET::Create(none, 1); }), -100);
    EXPECT_EQ(FailureOf([&] { return CMEMSET::Create(static_cast<CARRAY*>(nullptr)); }), -100);
    EXPECT_STREQ(sets[0]->CSET::ClassName(), "CSET");
}

// Every two sets of three things, as bits.
TEST(SetTest, CombinesSets) {
    const std::vector<OBJECT> things = {CTHING::Create(), CTHING::Create(), CTHING::Create()};
    const auto setOf = [&](int bits) {
        const auto set = CMEMSET::Create();
        for (int bit = 0; bit < 3; ++bit) {
            set->AddObject((bits >> bit & 1) != 0 ? things[static_cast<std::size_t>(bit)].Get() : nullptr);
        }
        return set;
    };
    for (int pair = 0; pair < 64; ++pair) {
        const int left = pair / 8, right = pair % 8;
        const auto other = setOf(right);
        EXPECT_EQ(setOf(left)->Contains(other), (left & right) == right ? 1 : 0);
        EXPECT_EQ(setOf(left)->Intersects(other), (left & right) != 0 ? 1 : 0);
        const std::pair<void (CSET::*)(CSET*), int> kChanges[] = {
            {&CSET::Union, left | right}, {&CSET::Intersect, left & right}, {&CSET::Substract, left & ~right}};
        for (const auto& [change, result] : kChanges) {
            const auto set = setOf(left);
            ((*set).*change)(left == right ? set : other);
            EXPECT_NE(set->Contains(setOf(result)), 0) << left << right;
            EXPECT_NE(setOf(result)->Contains(set), 0) << left << right;
        }
    }
    EXPECT_EQ(FailureOf([&] { return setOf(1)->Contains(nullptr); }), -100);
    EXPECT_EQ(FailureOf([&] { return setOf(1)->Intersects(nullptr); }), -100);
    for (const auto change : {&CSET::Union, &CSET::Intersect, &CSET::Substract}) {
        EXPECT_EQ(FailureOf([&] { ((*setOf(1)).*change)(nullptr); }), -100);
    }
}

// Against a plain list, with an iterator that stands anywhere while the entries move together under it.
TEST(SetTest, MayChangeWhileItIsWalked) {
    support::RANDOM random(20240612);
    std::vector<OBJECT> pool(200);
    std::generate(pool.begin(), pool.end(), [] { return CTHING::Create(); });
    for (int round = 0; round < 200; ++round) {
        auto set = CMEMSET::Create(CMEMARRAY::Create(pool));
        const std::unique_ptr<COBJECTITERATOR> iterator(set->CreateIterator());
        OBJECTS ahead(pool.begin(), pool.end());  // what the iterator is still to show, itself included
        while (!ahead.empty()) {
            COBJECT* const object = pool[random() % pool.size()];
            const bool isOnIt = ahead.front() == object;
            set->RemoveObject(object);
            std::erase(ahead, object);
            if (random() % 8 == 0) {
                EXPECT_EQ(set->AddObject(object), 1);
                EXPECT_EQ(set->AddObject(object), 0);
                ahead.push_back(object);
            }
            ASSERT_EQ(iterator->IsEnd(), ahead.empty() ? 1 : 0);
            ASSERT_EQ(iterator->GetCurrent(), ahead.empty() ? nullptr : ahead.front());
            if (isOnIt) {
                iterator->Next();  // to the one that followed, which it showed already
            } else if (random() % 2 == 0) {
                iterator->Next();
                ahead.erase(ahead.begin());
            }
        }
        set->RemoveAll();
        set->AddObject(pool[0]);
        set = nullptr;
        EXPECT_EQ(iterator->GetCurrent(), pool[0]) << "kept alive, and told of what comes behind";
    }
}

TEST(SetTest, ReleasesWhenItIsWhole) {
    ExpectWholeOnRelease<CSET>(
        CMEMSET::Create, [](CSET& set, COBJECT* object) { set.AddObject(object); },
        {[](CSET& set) { set.RemoveObject(*set.begin()); }, [](CSET& set) { set.RemoveAll(); },
         [](CSET& set) { set.Substract(&set); }, [](CSET& set) { set.Intersect(CMEMSET::Create()); }});
}

TEST(SetTest, HoldsAMillion) {
    std::vector<OBJECT> objects(1000000);
    std::generate(objects.begin(), objects.end(), [] { return CMEMARRAY::Create(); });
    const auto set = CMEMSET::Create(CMEMARRAY::Create(objects));
    const auto other = CMEMSET::Create(set->GetObjects());
    while (set->GetCount() > 500000) {
        set->RemoveObject(*set->begin());
    }
    EXPECT_EQ(other->Contains(set), 1);
    other->Substract(set);
    set->Union(other);
    EXPECT_EQ(set->GetObjects()->GetObjectIndex(objects[0]), 500000);
    set->Substract(set);
    EXPECT_EQ(set->GetCount(), 0);
}

}  // namespace
