#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <MLCore/datetime/CCALENDARMANAGER.h>
#include <MLCore/datetime/CCALENDARPORTOSTRATEGY.h>
#include <MLCore/datetime/CTIME.h>
#include <gtest/gtest.h>

#include <array>
#include <latch>
#include <thread>
#include <vector>

namespace {

using namespace MLCore;

constexpr int kThreads = 8;

struct SEEN {
    std::array<const void*, 8> objects{};
    std::array<int, 4> counts{};
};

std::array<SEEN, kThreads> seenBy;

// Objects that are made at their first use are used for the first time before any test runs, by all threads
// concurrently.
class FIRSTUSE : public ::testing::Environment {
    void SetUp() override {
        std::latch start(kThreads);
        std::vector<std::jthread> threads;
        for (SEEN& seen : seenBy) {
            threads.emplace_back([&seen, &start] {
                start.arrive_and_wait();
                const CDATE first(1, 1, 2024);
                const CDATE last(1, 1, 2025);
                seen.objects = {&CDATE::Null(),         &CDATE::Min(),
                                &CDATE::Max(),          &CTIME::Min(),
                                &CTIME::Max(),          CCALENDARMANAGER::GetInstance()->GetCalendar(),
                                &CDATE::MinDateShort(), &CDATE::MaxDateShort()};
                seen.counts = {
                    first.ComputeDaysOuvre(last), first.ComputeDaysOuvre(last, CCALENDARBANQUESTRATEGY::Create()),
                    first.ComputeDaysTravaille(last, CCALENDARPORTOSTRATEGY::Create()), CDATE(14, 7, 2024).IsFerie()};
            });
        }
    }
};

[[maybe_unused]] const ::testing::Environment* const kFirstUse = ::testing::AddGlobalTestEnvironment(new FIRSTUSE);

TEST(FirstUseTest, RacingThreadsSeeTheSame) {
    // 262 weekdays of 2024, less the holidays from Monday to Friday: ten, twelve and eleven.
    const std::array<int, 4> counts = {252, 250, 251, 1};
    for (const SEEN& seen : seenBy) {
        EXPECT_EQ(seen.objects, seenBy[0].objects);
        EXPECT_EQ(seen.counts, counts);
    }
    EXPECT_EQ(&CDATE::NullDate(), seenBy[0].objects[0]);
    EXPECT_EQ(CCALENDARMANAGER::GetInstance()->GetCalendar(), seenBy[0].objects[5]);
}

}  // namespace
