#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/platform/LastError.h>
#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

namespace {

using namespace MLCore::platform;

TEST(GlobalMemoryTest, KeepsExactSizesAndBytes) {
    void* block = GlobalBlockAlloc(100);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 100U);
    void* data = GlobalBlockLock(block);
    ASSERT_NE(data, nullptr);
    EXPECT_NE(data, block);
    std::memset(data, 0x5A, 100);
    EXPECT_FALSE(GlobalBlockUnlock(block));
    for (const std::size_t size : {101U, 1000U, 100000U, 99999U, 120U}) {
        block = GlobalBlockReAlloc(block, size);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(GlobalBlockSize(block), size);
    }
    const unsigned char* const bytes = static_cast<unsigned char*>(GlobalBlockLock(block));
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(bytes[i], 0x5A) << i;
    }
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, NewBytesAreZeroOnRequest) {
    void* block = GlobalBlockAlloc(50, kGlobalZeroInit);
    std::memset(GlobalBlockLock(block), 0xFF, 50);
    GlobalBlockUnlock(block);
    block = GlobalBlockReAlloc(block, 20);
    block = GlobalBlockReAlloc(block, 5000, kGlobalZeroInit);
    const unsigned char* const bytes = static_cast<unsigned char*>(GlobalBlockLock(block));
    EXPECT_EQ(bytes[19], 0xFF);
    for (int i = 50; i < 5000; ++i) {
        ASSERT_EQ(bytes[i], 0) << i;
    }
    GlobalBlockFree(block);
}

TEST(GlobalMemoryTest, LocksAreCounted) {
    void* const block = GlobalBlockAlloc(10);
    void* const data = GlobalBlockLock(block);
    EXPECT_EQ(GlobalBlockLock(block), data);
    EXPECT_TRUE(GlobalBlockUnlock(block));
    EXPECT_FALSE(GlobalBlockUnlock(block));
    EXPECT_FALSE(GlobalBlockUnlock(block));
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, ALockedBlockDoesNotMove) {
    void* block = GlobalBlockAlloc(64);
    void* const data = GlobalBlockLock(block);
    std::memset(data, 1, 64);
    EXPECT_EQ(GlobalBlockReAlloc(block, 10'000'000), nullptr);
    EXPECT_EQ(LastError(), 8U);
    EXPECT_EQ(GlobalBlockReAlloc(block, 0), nullptr);
    EXPECT_EQ(GlobalBlockReAlloc(block, 0, kGlobalMoveable), nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 64U);
    EXPECT_EQ(GlobalBlockReAlloc(block, 32), block);
    EXPECT_EQ(GlobalBlockLock(block), data);
    EXPECT_NE(GlobalBlockReAlloc(block, 10'000'000, kGlobalMoveable), nullptr);
    EXPECT_EQ(static_cast<unsigned char*>(GlobalBlockLock(block))[31], 1);
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, EmptyBlocks) {
    void* block = GlobalBlockAlloc(0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 0U);
    EXPECT_EQ(GlobalBlockLock(block), nullptr);
    block = GlobalBlockReAlloc(block, 8);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockReAlloc(block, 0), nullptr);
    EXPECT_EQ(LastError(), 87U);
    EXPECT_EQ(GlobalBlockSize(block), 8U);
    block = GlobalBlockReAlloc(block, 0, kGlobalMoveable);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 0U);
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, SizesBeyondTheMachineAreRefused) {
    EXPECT_EQ(GlobalBlockAlloc(std::size_t{1} << 60), nullptr);
    EXPECT_EQ(LastError(), 8U);
    EXPECT_EQ(GlobalBlockAlloc(~std::size_t{0}), nullptr);
    void* const block = GlobalBlockAlloc(16);
    EXPECT_EQ(GlobalBlockReAlloc(block, std::size_t{1} << 50), nullptr);
    EXPECT_EQ(LastError(), 8U);
    EXPECT_EQ(GlobalBlockSize(block), 16U);
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, WhatIsNoHandleIsRefused) {
    void* const stale = GlobalBlockAlloc(16);
    EXPECT_TRUE(GlobalBlockFree(stale));
    for (void* const handle : {stale, reinterpret_cast<void*>(0x1234)}) {
        EXPECT_EQ(GlobalBlockLock(handle), nullptr);
        EXPECT_EQ(LastError(), 6U);
        EXPECT_EQ(GlobalBlockSize(handle), 0U);
        EXPECT_FALSE(GlobalBlockUnlock(handle));
        EXPECT_EQ(GlobalBlockReAlloc(handle, 10), nullptr);
        EXPECT_EQ(LastError(), 6U);
        EXPECT_FALSE(GlobalBlockFree(handle));
        EXPECT_EQ(LastError(), 6U);
    }
    EXPECT_TRUE(GlobalBlockFree(nullptr));
    EXPECT_EQ(GlobalBlockSize(nullptr), 0U);
    EXPECT_EQ(GlobalBlockLock(nullptr), nullptr);
    EXPECT_EQ(GlobalBlockReAlloc(nullptr, 10), nullptr);
}

TEST(GlobalMemoryTest, ThreadsUseTheirOwnBlocks) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 1; i < 500; ++i) {
                void* block = GlobalBlockAlloc(16);
                std::memset(GlobalBlockLock(block), t, 16);
                GlobalBlockUnlock(block);
                block = GlobalBlockReAlloc(block, 16 + static_cast<std::size_t>(i));
                EXPECT_EQ(static_cast<unsigned char*>(GlobalBlockLock(block))[15], t);
                GlobalBlockFree(block);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
