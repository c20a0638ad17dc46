#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/core/CSHAREOBJECTCOUNTER.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
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
    bool* sawItself = nullptr;

protected:
    ~CNODE() override {
        --gAlive;
        if (watched != nullptr) {
            *sawItself = watched->Get() == this;
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
    EXPECT_EQ(node->GetUseCount(), 1);
    EXPECT_EQ(node->AddRef(), 2U);
    {
        const HOLDER copy = AdoptObject(new CNODE(*node));
        EXPECT_EQ(copy->GetUseCount(), 1) << "a copy does not inherit the count";
        *copy = *node;
        EXPECT_EQ(copy->GetUseCount(), 1) << "nor does an object that is assigned to";
    }
    EXPECT_EQ(node->GetUseCount(), 2);
    EXPECT_EQ(node->Release(), 2U) << "the count before";
    EXPECT_EQ(node->GetUseCount(), 1);
    EXPECT_EQ(gAlive, 1);
    EXPECT_EQ(node->Release(), 1U);
}

TEST_F(SharedObjectTest, Counter) {
    CNODE* const node = new CNODE;
    {
        CSHAREOBJECTCOUNTER added(node, 0);
        EXPECT_EQ(node->GetUseCount(), 2);
        added.Attach(node);
        EXPECT_EQ(node->GetUseCount(), 2);
        added.Attach(nullptr);
        EXPECT_EQ(node->GetUseCount(), 1);
        added.Attach(node);
        CSHAREOBJECTCOUNTER nothing(nullptr, 0);
        const CSHAREOBJECTCOUNTER nothingAdopted(nullptr, 1);
        nothing.Attach(nullptr);
        nothing.Attach(node);
        EXPECT_EQ(node->GetUseCount(), 3);
    }
    EXPECT_EQ(node->GetUseCount(), 1);
    // The holder's object owns the next one, which must survive it.
    node->next = AdoptObject(new CNODE);
    CNODE* const next = node->next;
    CSHAREOBJECTCOUNTER adopted(node, 1);
    EXPECT_EQ(node->GetUseCount(), 1);
    adopted.Attach(next);
    EXPECT_EQ(gAlive, 1);
    EXPECT_EQ(next->GetUseCount(), 1);
}

TEST_F(SharedObjectTest, HoldersAreConstructed) {
    const HOLDER none;
    const HOLDER null = nullptr;
    const HOLDER nullRaw(static_cast<CNODE*>(nullptr));
    EXPECT_TRUE(!none && !null && !nullRaw && !HOLDER(null) && !AdoptObject<CNODE>(nullptr));

    HOLDER holder = AdoptObject(new CNODE);
    EXPECT_EQ(holder->GetUseCount(), 1);
    CNODE* const raw = holder;
    {
        const HOLDER fromRaw(raw);
        const HOLDER copy(holder);
        EXPECT_EQ(raw->GetUseCount(), 3);
        EXPECT_EQ(&*copy, fromRaw.Get());
    }
    const HOLDER moved(std::move(holder));
    EXPECT_FALSE(holder);
    EXPECT_EQ(moved->GetUseCount(), 1);

    LEAFHOLDER leaf = AdoptObject(new CLEAF);
    CNODE* const leafNode = leaf.Get();
    const HOLDER leafCopy = leaf;
    EXPECT_EQ(leafCopy.Get(), leafNode);
    EXPECT_EQ(leafNode->GetUseCount(), 2);
    const HOLDER leafMoved = std::move(leaf);
    EXPECT_FALSE(leaf);
    EXPECT_EQ(leafMoved.Get(), leafNode);
    EXPECT_EQ(leafNode->GetUseCount(), 2);
    EXPECT_TRUE(!HOLDER(LEAFHOLDER()));

    HOLDER given = leafCopy;
    EXPECT_EQ(given.Release(), leafNode);
    EXPECT_FALSE(given);
    EXPECT_EQ(given.Release(), nullptr);
    EXPECT_EQ(leafNode->GetUseCount(), 3);
    leafNode->Release();
}

TEST_F(SharedObjectTest, HoldersAreAssigned) {
    // Each way to assign `source`, whose object then has `count` owners.
    const struct {
        const char* way;
        void (*assign)(HOLDER& target, LEAFHOLDER& source);
        long count;
    } kRows[] = {
        {"raw", [](HOLDER& target, LEAFHOLDER& source) { target = source.Get(); }, 2},
        {"derived", [](HOLDER& target, LEAFHOLDER& source) { target = source; }, 2},
        {"copy", [](HOLDER& target, LEAFHOLDER& source) { target = static_cast<const HOLDER&>(HOLDER(source)); }, 2},
        {"move", [](HOLDER& target, LEAFHOLDER& source) { target = HOLDER(source); }, 2},
        {"derived move", [](HOLDER& target, LEAFHOLDER& source) { target = std::move(source); }, 1},
    };
    for (const auto& row : kRows) {
        for (const bool targetIsNull : {false, true}) {
            LEAFHOLDER source = AdoptObject(new CLEAF);
            CLEAF* const object = source;
            HOLDER target = targetIsNull ? HOLDER() : AdoptObject(new CNODE);
            row.assign(target, source);
            EXPECT_EQ(target.Get(), object) << row.way;
            EXPECT_EQ(object->GetUseCount(), row.count) << row.way;
            EXPECT_EQ(!source, row.count == 1) << row.way;
            EXPECT_EQ(gAlive, 1) << row.way;
            LEAFHOLDER null;
            row.assign(target, null);
            EXPECT_FALSE(target) << row.way;
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
    EXPECT_EQ(holder->GetUseCount(), 2);
    holder = HOLDER(other);
    EXPECT_EQ(holder->GetUseCount(), 2);
    holder = std::move(self);
    EXPECT_FALSE(holder) << "a holder moved into itself is left null";
    EXPECT_EQ(other->GetUseCount(), 1);
    holder = std::move(self);
    EXPECT_FALSE(holder);
    holder = nullptr;
    EXPECT_FALSE(holder);
}

TEST_F(SharedObjectTest, WhatTheOldObjectOwnsSurvives) {
    void (*const kSteps[])(HOLDER&) = {[](HOLDER& holder) { holder = holder->next; },
                                       [](HOLDER& holder) { holder = holder->next.Get(); },
                                       [](HOLDER& holder) { holder = std::move(holder->next); }};
    for (const auto step : kSteps) {
        HOLDER holder = AdoptObject(new CNODE);
        CNODE* last = holder;
        for (int i = 0; i < 3; ++i, last = last->next) {
            last->next = AdoptObject(new CNODE);
        }
        for (int left = 3; left > 0; --left) {
            step(holder);
            EXPECT_EQ(gAlive, left);
            EXPECT_EQ(holder->GetUseCount(), 1);
        }
        EXPECT_EQ(holder.Get(), last);
    }
}

TEST_F(SharedObjectTest, AnObjectThatGoesIsNoLongerHeld) {
    void (*const kEnds[])(HOLDER&) = {[](HOLDER& holder) { holder = nullptr; },
                                      [](HOLDER& holder) { holder = HOLDER(); },
                                      [](HOLDER& holder) { holder = AdoptObject(new CNODE); }};
    for (const auto end : kEnds) {
        bool sawItself = true;
        HOLDER holder = AdoptObject(new CNODE);
        holder->watched = &holder;
        holder->sawItself = &sawItself;
        end(holder);
        EXPECT_FALSE(sawItself);
    }
}

TEST_F(SharedObjectTest, HoldersCompareByIdentity) {
    LEAFHOLDER leaf = AdoptObject(new CLEAF);
    CLEAF* const rawLeaf = leaf;
    CNODE* const raw = leaf;
    const HOLDER node = leaf;
    const HOLDER other = AdoptObject(new CNODE);
    const HOLDER null;
    EXPECT_TRUE(node == node && node == leaf && leaf == node && node == raw && raw == node && leaf == rawLeaf);
    EXPECT_TRUE(node == rawLeaf && rawLeaf == node && leaf == raw && null == nullptr && nullptr == null);
    EXPECT_TRUE(node != other && other != leaf && node != nullptr && nullptr != node && node != null && raw != other);
    EXPECT_FALSE(node != leaf || node == other || node == nullptr || null == node || raw == other || null != nullptr);
    EXPECT_TRUE(node && !null && !!node);

    const std::unordered_set<HOLDER> hashed{node, HOLDER(leaf), other, null};
    EXPECT_EQ(hashed.size(), 3U);
    EXPECT_EQ(std::hash<HOLDER>()(node), std::hash<HOLDER>()(HOLDER(raw)));
}

TEST_F(SharedObjectTest, NoMoreRefMayRecycle) {
    class CRECYCLED : public CNODE {
    public:
        bool keep = true;
        int ends = 0;

    protected:
        void NoMoreRef() override {
            ++ends;
            if (keep) {
                AddRef();  // back in stock, with an owner again
            } else {
                CNODE::NoMoreRef();
            }
        }
    };
    auto* const object = new CRECYCLED;
    for (int round = 1; round <= 3; ++round) {
        EXPECT_EQ(object->Release(), 1U);
        EXPECT_EQ(object->ends, round);
        EXPECT_EQ(object->GetUseCount(), 1);
    }
    object->keep = false;
    object->Release();
}

TEST_F(SharedObjectTest, ThreadsShareObjects) {
    constexpr unsigned long kThreads = 4;
    constexpr int kObjects = 2000;
    std::vector<CNODE*> objects;
    for (int i = 0; i < kObjects; ++i) {
        objects.push_back(new CNODE);
        for (unsigned long reference = 1; reference < kThreads; ++reference) {
            objects.back()->AddRef();
        }
    }
    std::atomic<bool> start{false};
    std::vector<std::vector<unsigned long>> results(kThreads);
    std::vector<std::thread> threads;
    for (auto& own : results) {
        threads.emplace_back([&objects, &start, &own] {
            while (!start) {
                std::this_thread::yield();
            }
            for (CNODE* const object : objects) {
                { const HOLDER holder(object); }
                own.push_back(object->Release());
            }
        });
    }
    start = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(gAlive, 0);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        int last = 0;
        for (const auto& own : results) {
            EXPECT_LE(own[i], 2 * kThreads);
            last += own[i] == 1 ? 1 : 0;
        }
        EXPECT_EQ(last, 1) << "one thread, and no other, is told that its reference was the last";
    }
}

}  // namespace
