#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/core/CSHAREOBJECTCOUNTER.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <gtest/gtest.h>
#include <support/Threads.h>

#include <atomic>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace {

using namespace MLCore;

std::atomic<int> gAlive{0};

class CNODE : public CSHAREOBJECT {
public:
    CNODE() { ++gAlive; }
    CNODE(const CNODE& other) : CSHAREOBJECT(other), next(other.next) { ++gAlive; }
    CNODE& operator=(const CNODE&) = default;

    CSHAREOBJECTPTR<CNODE> next;
    /// Where the object looks for itself when it goes.
    const CSHAREOBJECTPTR<CNODE>* watched = nullptr;

protected:
    ~CNODE() override {
        --gAlive;
        if (watched != nullptr) {
            EXPECT_NE(watched->Get(), this) << "an object that goes is no longer held";
        }
    }
};

struct FRONT {
    virtual ~FRONT() = default;
    long front = 0;
};

/// Its CNODE does not stand at its start: converting the pointer changes it.
class CLEAF : public FRONT, public CNODE {};

using HOLDER = CSHAREOBJECTPTR<CNODE>;
using LEAFHOLDER = CSHAREOBJECTPTR<CLEAF>;

// What compiles, and what does not.
static_assert(sizeof(HOLDER) == sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<HOLDER> && std::is_nothrow_move_assignable_v<HOLDER>);
static_assert(std::is_convertible_v<LEAFHOLDER, HOLDER> && std::is_assignable_v<HOLDER&, LEAFHOLDER>);
static_assert(!std::is_constructible_v<LEAFHOLDER, HOLDER> && !std::is_assignable_v<LEAFHOLDER&, HOLDER>);
static_assert(!std::is_copy_constructible_v<CSHAREOBJECTCOUNTER> && !std::is_copy_assignable_v<CSHAREOBJECTCOUNTER>);

class SharedObjectTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(gAlive, 0) << "objects must not survive their owners"; }
};

TEST_F(SharedObjectTest, Counts) {
    CNODE* const node = new CNODE;
    EXPECT_EQ(node->AddRef(), 2U);
    {
        const HOLDER copy = AdoptObject(new CNODE(*node));
        EXPECT_EQ(copy->GetUseCount(), 1) << "a copy does not inherit the count";
        *copy = *node;
        EXPECT_EQ(copy->GetUseCount(), 1) << "nor does an object that is assigned to";
    }
    EXPECT_EQ(node->GetUseCount(), 2);
    EXPECT_EQ(node->Release(), 2U) << "the count before";
    EXPECT_EQ(gAlive, 1);
    EXPECT_EQ(node->Release(), 1U);
}

TEST_F(SharedObjectTest, Counter) {
    CNODE* const node = new CNODE;
    {
        CSHAREOBJECTCOUNTER added(node, 0);
        added.Attach(node);
        EXPECT_EQ(node->GetUseCount(), 2);
        added.Attach(nullptr);
        EXPECT_EQ(node->GetUseCount(), 1);
        CSHAREOBJECTCOUNTER nothing(nullptr, 0);
        const CSHAREOBJECTCOUNTER nothingAdopted(nullptr, 1);
        nothing.Attach(node);
        EXPECT_EQ(node->GetUseCount(), 2);
    }
    EXPECT_EQ(node->GetUseCount(), 1);
    // The counter's object owns the next one, which must survive it.
    CNODE* const next = node->next = AdoptObject(new CNODE);
    CSHAREOBJECTCOUNTER adopted(node, 1);
    EXPECT_EQ(node->GetUseCount(), 1);
    adopted.Attach(next);
    EXPECT_EQ(gAlive, 1);
    EXPECT_EQ(next->GetUseCount(), 1);
}

TEST_F(SharedObjectTest, HoldersAreConstructed) {
    const HOLDER null = nullptr;
    EXPECT_TRUE(!HOLDER());
    EXPECT_TRUE(!null);
    EXPECT_TRUE(!HOLDER(static_cast<CNODE*>(nullptr)));
    EXPECT_TRUE(!HOLDER(null));
    EXPECT_TRUE(!AdoptObject<CNODE>(nullptr));
    EXPECT_TRUE(!HOLDER(LEAFHOLDER()));

    LEAFHOLDER leaf = AdoptObject(new CLEAF);
    CNODE* const node = leaf.Get();
    EXPECT_EQ(node->GetUseCount(), 1);
    HOLDER first = leaf;
    const HOLDER second(first);
    const HOLDER third(node);
    EXPECT_EQ(node->GetUseCount(), 4);
    const HOLDER fourth(std::move(first));
    HOLDER fifth(std::move(leaf));
    EXPECT_TRUE(!first);
    EXPECT_TRUE(!leaf);
    EXPECT_EQ(node->GetUseCount(), 4) << "moved, not copied";
    for (const HOLDER* holder : {&second, &third, &fourth, static_cast<const HOLDER*>(&fifth)}) {
        EXPECT_EQ(holder->Get(), node);
        EXPECT_EQ(&**holder, node);
    }
    EXPECT_EQ(fifth.Release(), node);
    EXPECT_EQ(fifth.Release(), nullptr);
    EXPECT_EQ(node->GetUseCount(), 4) << "released to the caller";
    node->Release();
}

TEST_F(SharedObjectTest, HoldersAreAssigned) {
    // The ways to assign `source`; the last one empties it.
    void (*const kWays[])(HOLDER & target, LEAFHOLDER & source) = {
        [](HOLDER& target, LEAFHOLDER& source) { target = source.Get(); },
        [](HOLDER& target, LEAFHOLDER& source) { target = source; },
        [](HOLDER& target, LEAFHOLDER& source) { target = static_cast<const HOLDER&>(HOLDER(source)); },
        [](HOLDER& target, LEAFHOLDER& source) { target = HOLDER(source); },
        [](HOLDER& target, LEAFHOLDER& source) { target = std::move(source); }};
    for (const auto assign : kWays) {
        const bool isMove = assign == std::end(kWays)[-1];
        for (const bool targetIsNull : {false, true}) {
            LEAFHOLDER source = AdoptObject(new CLEAF);
            CLEAF* const object = source;
            HOLDER target = targetIsNull ? HOLDER() : AdoptObject(new CNODE);
            if (target) {
                target->watched = &target;
            }
            assign(target, source);
            EXPECT_EQ(target.Get(), object);
            EXPECT_EQ(object->GetUseCount(), isMove ? 1 : 2);
            EXPECT_EQ(!source, isMove);
            EXPECT_EQ(gAlive, 1);
            source = nullptr;
            object->watched = &target;
            assign(target, source);
            EXPECT_FALSE(target);
            EXPECT_EQ(gAlive, 0);
        }
    }
}

TEST_F(SharedObjectTest, HoldersOfTheSameObjectAreAssigned) {
    HOLDER holder = AdoptObject(new CNODE);
    const HOLDER other = holder;
    HOLDER& self = holder;
    holder = self;
    holder = other;
    holder = other.Get();
    holder = HOLDER(other);
    EXPECT_EQ(holder->GetUseCount(), 2);
    for (int round = 0; round < 2; ++round) {
        holder = std::move(self);
        EXPECT_FALSE(holder) << "a holder moved into itself is left null";
        EXPECT_EQ(other->GetUseCount(), 1);
    }
    holder = nullptr;
    EXPECT_FALSE(holder);
}

TEST_F(SharedObjectTest, WhatTheOldObjectOwnsSurvives) {
    void (*const kSteps[])(HOLDER&) = {[](HOLDER& holder) { holder = holder->next; },
                                       [](HOLDER& holder) { holder = holder->next.Get(); },
                                       [](HOLDER& holder) { holder = std::move(holder->next); }};
    for (const auto step : kSteps) {
        HOLDER holder = AdoptObject(new CNODE);
        CNODE* const last = holder->next = AdoptObject(new CNODE);
        step(holder);
        EXPECT_EQ(gAlive, 1);
        EXPECT_EQ(holder.Get(), last);
        EXPECT_EQ(holder->GetUseCount(), 1);
    }
}

TEST_F(SharedObjectTest, HoldersCompareByIdentity) {
    const LEAFHOLDER leaf = AdoptObject(new CLEAF);
    CLEAF* const rawLeaf = leaf;
    CNODE* const raw = leaf;
    const HOLDER node = leaf;
    const HOLDER other = AdoptObject(new CNODE);
    const HOLDER null;
    EXPECT_EQ(node, node);
    EXPECT_EQ(node, leaf);
    EXPECT_EQ(leaf, node);
    EXPECT_EQ(node, raw);
    EXPECT_EQ(raw, node);
    EXPECT_EQ(leaf, rawLeaf);
    EXPECT_EQ(node, rawLeaf);
    EXPECT_EQ(rawLeaf, node);
    EXPECT_EQ(leaf, raw);
    EXPECT_EQ(null, nullptr);
    EXPECT_EQ(nullptr, null);
    EXPECT_NE(node, other);
    EXPECT_NE(other, leaf);
    EXPECT_NE(node, nullptr);
    EXPECT_NE(nullptr, node);
    EXPECT_NE(node, null);
    EXPECT_NE(raw, other);
    EXPECT_FALSE(node != leaf);
    EXPECT_FALSE(node == other);
    EXPECT_FALSE(node == nullptr);
    EXPECT_FALSE(null == node);
    EXPECT_FALSE(raw == other);
    EXPECT_FALSE(null != nullptr);
    EXPECT_TRUE(node);
    EXPECT_TRUE(!null);
    EXPECT_EQ((std::unordered_set<HOLDER>{node, HOLDER(leaf), other, null}).size(), 3U);
}

TEST_F(SharedObjectTest, NoMoreRefMayRecycle) {
    class CRECYCLED : public CNODE {
        int mEnds = 0;
        void NoMoreRef() override { ++mEnds < 3 ? static_cast<void>(AddRef()) : CNODE::NoMoreRef(); }
    };
    auto* const object = new CRECYCLED;
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(object->Release(), 1U);
        EXPECT_EQ(object->GetUseCount(), 1) << "back in stock, with an owner again";
    }
    object->Release();
}

TEST_F(SharedObjectTest, ThreadsShareObjects) {
    constexpr int kThreads = 4;
    std::vector<CNODE*> objects(2000);
    for (CNODE*& object : objects) {
        object = new CNODE;
        for (int reference = 1; reference < kThreads; ++reference) {
            object->AddRef();
        }
    }
    std::atomic<std::size_t> ends{0};
    support::RunTogether(kThreads, [&objects, &ends](int) {
        for (CNODE* const object : objects) {
            { const HOLDER holder(object); }
            const unsigned long before = object->Release();
            EXPECT_LE(before, 2UL * kThreads);
            ends += before == 1 ? 1 : 0;
        }
    });
    EXPECT_EQ(ends, objects.size()) << "one thread, and no other, is told that its reference was the last";
}

}  // namespace
