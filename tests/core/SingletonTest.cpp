#include <MLCore/core/CSINGLETON.h>
#include <gtest/gtest.h>
#include <support/Threads.h>

#include <atomic>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace MLCore;

template <class Policy>
class CCOUNTED : public CSINGLETON<CCOUNTED<Policy>, Policy> {
public:
    inline static std::atomic<int> created{0};
    inline static std::atomic<int> freed{0};
    inline static std::atomic<int> failuresToCome{0};

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
class SingletonTest : public testing::Test {
protected:
    SingletonTest() { Reset(); }
    ~SingletonTest() override { Reset(); }
    static void Reset() {
        CCOUNTED<Policy>::Free();
        CCOUNTED<Policy>::created = CCOUNTED<Policy>::freed = 0;
    }
};

using POLICIES = testing::Types<autorelease, noautorelease>;
TYPED_TEST_SUITE(SingletonTest, POLICIES, );

TYPED_TEST(SingletonTest, IsCreatedOnceAndAgainAfterFree) {
    using SINGLETON = CCOUNTED<TypeParam>;
    for (int round = 1; round <= 3; ++round) {
        SINGLETON::failuresToCome = 2;
        EXPECT_THROW(SINGLETON::GetInstance(), std::runtime_error);
        SINGLETON::Free();
        EXPECT_THROW(SINGLETON::GetInstance(), std::runtime_error);
        SINGLETON* const instance = SINGLETON::GetInstance();
        EXPECT_EQ(SINGLETON::GetInstance(), instance);
        EXPECT_EQ(SINGLETON::created, round);
        SINGLETON::Free();
        SINGLETON::Free();
        EXPECT_EQ(SINGLETON::freed, round);
    }
}

TYPED_TEST(SingletonTest, ThreadsRaceForTheFirstUse) {
    using SINGLETON = CCOUNTED<TypeParam>;
    constexpr int kThreads = 4;
    for (int round = 0; round < 100; ++round) {
        this->Reset();
        SINGLETON::failuresToCome = round % 3;
        std::atomic<int> failures{0};
        std::vector<SINGLETON*> seen(kThreads);
        support::RunTogether(kThreads, [&seen, &failures](int thread) {
            SINGLETON*& own = seen[static_cast<std::size_t>(thread)];
            while (own == nullptr) {
                try {
                    own = SINGLETON::GetInstance();
                } catch (const std::runtime_error&) {
                    ++failures;
                }
            }
        });
        EXPECT_EQ(failures, round % 3);
        EXPECT_EQ(SINGLETON::created, 1);
        EXPECT_EQ(seen, std::vector<SINGLETON*>(kThreads, SINGLETON::GetInstance()));
    }
}

#if defined(_WIN32)
constexpr int kMadeAtTheEnd = 0;  // Wine forgets what is registered meanwhile
#else
constexpr int kMadeAtTheEnd = 1;
#endif

// Ends the process after two creations and one Free(), and makes another instance when the last is gone; its status is
// the number of instances released by then.
template <class Policy>
void EndProcess() {
    using SINGLETON = CCOUNTED<Policy>;
    std::atexit([] { std::_Exit(10 + SINGLETON::freed); });
    if constexpr (kMadeAtTheEnd != 0) {
        std::atexit([] { SINGLETON::GetInstance(); });
    }
    SINGLETON::GetInstance();
    SINGLETON::Free();
    SINGLETON::GetInstance();
    std::exit(0);
}

TYPED_TEST(SingletonTest, TheEndOfTheProcess) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const int released = std::is_same_v<TypeParam, autorelease> ? 2 + kMadeAtTheEnd : 1;
    EXPECT_EXIT(EndProcess<TypeParam>(), testing::ExitedWithCode(10 + released), "");
}

}  // namespace
