#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/platform/LastError.h>
#include <gtest/gtest.h>
#include <support/Threads.h>

#include <cstring>
#include <string>

namespace {

using namespace MLCore::platform;

/// The first bytes of a block, which is locked once more.
std::string Bytes(void* block, std::size_t count) { return {static_cast<char*>(GlobalBlockLock(block)), count}; }

TEST(GlobalMemoryTest, KeepsExactSizesAndBytes) {
    void* block = GlobalBlockAlloc(100);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 100U);
    void* data = GlobalBlockLock(block);
    ASSERT_NE(data, nullptr);
    ASSERT_NE(data, block);
    std::memset(data, 'Z', 100);
    EXPECT_FALSE(GlobalBlockUnlock(block));
    for (const std::size_t size : {101U, 1000U, 100000U, 99999U, 120U}) {
        block = GlobalBlockReAlloc(block, size);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(GlobalBlockSize(block), size);
    }
    EXPECT_EQ(Bytes(block, 100), std::string(100, 'Z'));
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, NewBytesAreZeroOnRequest) {
    void* block = GlobalBlockAlloc(50, kGlobalZeroInit);
    EXPECT_EQ(Bytes(block, 50), std::string(50, '\0'));
    std::memset(GlobalBlockLock(block), 'Z', 50);
    while (GlobalBlockUnlock(block)) {
    }
    block = GlobalBlockReAlloc(GlobalBlockReAlloc(block, 30), 50, kGlobalZeroInit);
    EXPECT_EQ(Bytes(block, 50), std::string(30, 'Z') + std::string(20, '\0'));
    block = GlobalBlockReAlloc(block, 5000, kGlobalZeroInit | kGlobalMoveable);
    EXPECT_EQ(Bytes(block, 5000).substr(50), std::string(4950, '\0'));
    GlobalBlockFree(block);
}

TEST(GlobalMemoryTest, ALockedBlockDoesNotMove) {
    void* const block = GlobalBlockAlloc(64);
    void* const data = GlobalBlockLock(block);
    std::memset(data, 'Z', 64);
    EXPECT_EQ(GlobalBlockReAlloc(block, 10'000'000), nullptr);
    EXPECT_EQ(LastError(), 8U);
    EXPECT_EQ(GlobalBlockReAlloc(block, 0), nullptr);
    EXPECT_EQ(GlobalBlockReAlloc(block, 0, kGlobalMoveable), nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 64U);
    EXPECT_EQ(GlobalBlockReAlloc(block, 32), block);
    EXPECT_EQ(GlobalBlockLock(block), data);
    EXPECT_TRUE(GlobalBlockUnlock(block)) << "locks are counted";
    EXPECT_NE(GlobalBlockReAlloc(block, 10'000'000, kGlobalMoveable), nullptr);
    EXPECT_EQ(Bytes(block, 32), std::string(32, 'Z'));
    EXPECT_TRUE(GlobalBlockUnlock(block));
    EXPECT_FALSE(GlobalBlockUnlock(block));
    EXPECT_FALSE(GlobalBlockUnlock(block));
    EXPECT_TRUE(GlobalBlockFree(block));
}

TEST(GlobalMemoryTest, EmptyAndExcessiveSizes) {
    void* block = GlobalBlockAlloc(0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 0U);
    EXPECT_EQ(GlobalBlockLock(block), nullptr);
    block = GlobalBlockReAlloc(block, 8);
    EXPECT_EQ(GlobalBlockReAlloc(block, 0), nullptr);
    EXPECT_EQ(LastError(), 87U);
    EXPECT_EQ(GlobalBlockReAlloc(block, std::size_t{1} << 50), nullptr);
    EXPECT_EQ(LastError(), 8U);
    EXPECT_EQ(GlobalBlockSize(block), 8U);
    block = GlobalBlockReAlloc(block, 0, kGlobalMoveable);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalBlockSize(block), 0U);
    EXPECT_TRUE(GlobalBlockFree(block));
    EXPECT_EQ(GlobalBlockAlloc(std::size_t{1} << 60), nullptr);
    EXPECT_EQ(LastError(), 8U);
    EXPECT_EQ(GlobalBlockAlloc(~std::size_t{0}), nullptr);
}

TEST(GlobalMemoryTest, WhatIsNoHandleIsRefused) {
    void* const stale = GlobalBlockAlloc(16);
    EXPECT_TRUE(GlobalBlockFree(stale));
    for (void* const handle : {stale, reinterpret_cast<void*>(0x1234), static_cast<void*>(nullptr)}) {
        EXPECT_EQ(GlobalBlockLock(handle), nullptr);
        EXPECT_TRUE(handle == nullptr || LastError() == 6);
        EXPECT_EQ(GlobalBlockSize(handle), 0U);
        EXPECT_FALSE(GlobalBlockUnlock(handle));
        EXPECT_EQ(GlobalBlockReAlloc(handle, 10), nullptr);
        EXPECT_EQ(GlobalBlockFree(handle), handle == nullptr);
    }
}

TEST(GlobalMemoryTest, ThreadsUseTheirOwnBlocks) {
    support::RunTogether(4, [](int thread) {
        for (std::size_t i = 1; i < 500; ++i) {
            void* block = GlobalBlockAlloc(16);
            std::memset(GlobalBlockLock(block), 'A' + thread, 16);
            GlobalBlockUnlock(block);
            block = GlobalBlockReAlloc(block, 16 + i);
            EXPECT_EQ(Bytes(block, 16), std::string(16, static_cast<char>('A' + thread)));
            GlobalBlockFree(block);
        }
    });
}

}  // namespace
