#include <MLCore/core/CSINGLETON.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace MLCore;

template <class Policy>
class CCOUNTED : public CSINGLETON<CCOUNTED<Policy>, Policy> {
public:
    static std::atomic<int> created;
    static std::atomic<int> freed;
    static std::atomic<int> failuresToCome;

    const std::string text = "on the heap, so that a leak or a second release is noticed";

private:
    friend class CSINGLETON<CCOUNTED<Policy>, Policy>;
    CCOUNTED() {
        if (failuresToCome > 0) {
            --failuresToCome;
            throw std::runtime_error("not yet");
        }
        ++created;
    }
    ~CCOUNTED() override { ++freed; }
};

template <class Policy>
std::atomic<int> CCOUNTED<Policy>::created{0};
template <class Policy>
std::atomic<int> CCOUNTED<Policy>::freed{0};
template <class Policy>
std::atomic<int> CCOUNTED<Policy>::failuresToCome{0};

template <class Policy>
class SingletonTest : public testing::Test {
protected:
    void SetUp() override { Reset(); }
    void TearDown() override { CCOUNTED<Policy>::Free(); }
    static void Reset() {
        CCOUNTED<Policy>::Free();
        CCOUNTED<Policy>::created = 0;
        CCOUNTED<Policy>::freed = 0;
    }
};

struct POLICYNAME {
    template <class Policy>
    static std::string GetName(int) {
        return std::is_same_v<Policy, autorelease> ? "autorelease" : "noautorelease";
    }
};
using POLICIES = testing::Types<autorelease, noautorelease>;
TYPED_TEST_SUITE(SingletonTest, POLICIES, POLICYNAME);

TYPED_TEST(SingletonTest, IsCreatedOnceAndAgainAfterFree) {
    using SINGLETON = CCOUNTED<TypeParam>;
    for (int round = 1; round <= 3; ++round) {
        SINGLETON* const instance = SINGLETON::GetInstance();
        EXPECT_EQ(SINGLETON::GetInstance(), instance);
        EXPECT_EQ(SINGLETON::created, round);
        SINGLETON::Free();
        SINGLETON::Free();
        EXPECT_EQ(SINGLETON::freed, round);
    }
}

TYPED_TEST(SingletonTest, AFailedCreationIsTriedAgain) {
    using SINGLETON = CCOUNTED<TypeParam>;
    for (int round = 0; round < 2; ++round) {
        SINGLETON::failuresToCome = 2;
        EXPECT_THROW(SINGLETON::GetInstance(), std::runtime_error);
        SINGLETON::Free();
        EXPECT_THROW(SINGLETON::GetInstance(), std::runtime_error);
        EXPECT_NE(SINGLETON::GetInstance(), nullptr);
        EXPECT_EQ(SINGLETON::created, round + 1);
        SINGLETON::Free();
    }
    EXPECT_EQ(SINGLETON::freed, 2);
}

TYPED_TEST(SingletonTest, ThreadsRaceForTheFirstUse) {
    using SINGLETON = CCOUNTED<TypeParam>;
    constexpr int kThreads = 4;
    for (int round = 0; round < 100; ++round) {
        this->Reset();
        SINGLETON::failuresToCome = round % 3;
        std::atomic<int> waiting{0};
        std::atomic<int> failures{0};
        std::vector<SINGLETON*> seen(kThreads);
        std::vector<std::thread> threads;
        for (SINGLETON*& own : seen) {
            threads.emplace_back([&own, &waiting, &failures] {
                ++waiting;
                while (waiting < kThreads) {
                    std::this_thread::yield();
                }
                while (own == nullptr) {
                    try {
                        own = SINGLETON::GetInstance();
                    } catch (const std::runtime_error&) {
                        ++failures;
                    }
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(failures, round % 3);
        EXPECT_EQ(SINGLETON::created, 1);
        EXPECT_EQ(seen, std::vector<SINGLETON*>(kThreads, SINGLETON::GetInstance()));
    }
}

// Ends the process after two creations and one Free(); its status is the number of instances released by then.
template <class Policy>
void EndProcess() {
    using SINGLETON = CCOUNTED<Policy>;
    std::atexit([] { std::_Exit(10 + SINGLETON::freed); });
    SINGLETON::GetInstance();
    SINGLETON::Free();
    SINGLETON::GetInstance();
    std::exit(0);
}

TYPED_TEST(SingletonTest, TheEndOfTheProcess) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const int released = std::is_same_v<TypeParam, autorelease> ? 2 : 1;
    EXPECT_EXIT(EndProcess<TypeParam>(), testing::ExitedWithCode(10 + released), "");
}

}  // namespace
