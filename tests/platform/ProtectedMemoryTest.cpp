#include <MLCore/platform/ProtectedMemory.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace {

using namespace MLCore::platform;

TEST(ProtectedMemoryTest, SealedBytesComeBack) {
    constexpr std::size_t kSize = 64;
    char* const memory = static_cast<char*>(AllocateSecret(kSize));
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % 16, 0U);
    EXPECT_EQ(std::string(memory, kSize), std::string(kSize, '\0'));
    std::memset(memory, 's', kSize);
    MEMORYSEAL seal;
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(SealMemory(memory, kSize, seal));
        ASSERT_TRUE(OpenMemory(memory, kSize, seal));
        EXPECT_EQ(std::string(memory, kSize), std::string(kSize, 's'));
    }
    WipeMemory(memory, kSize);
    EXPECT_EQ(std::string(memory, kSize), std::string(kSize, '\0'));
    FreeSecret(memory, kSize);
    FreeSecret(nullptr, kSize);
}

// Wine accepts the calls of Windows and leaves the bytes as they are, so the effect is seen on Linux only.
#if !defined(_WIN32)
TEST(ProtectedMemoryTest, SealedBytesAreUnreadableAndDifferEachTime) {
    constexpr std::size_t kSize = 32;
    std::string first(kSize, 's');
    std::string second = first;
    MEMORYSEAL firstSeal;
    MEMORYSEAL secondSeal;
    ASSERT_TRUE(SealMemory(first.data(), kSize, firstSeal));
    ASSERT_TRUE(SealMemory(second.data(), kSize, secondSeal));
    EXPECT_EQ(first.find("ssssssss"), std::string::npos);
    EXPECT_NE(first, second);
    ASSERT_TRUE(OpenMemory(first.data(), kSize, firstSeal));
    EXPECT_EQ(first, std::string(kSize, 's'));
}
#endif

TEST(ProtectedMemoryTest, SizesThatDoNotGoAreRefused) {
    std::string bytes(32, 's');
    MEMORYSEAL seal;
    for (const std::size_t size : {1U, 15U, 17U, 31U}) {
        EXPECT_EQ(AllocateSecret(size), nullptr);
        EXPECT_FALSE(SealMemory(bytes.data(), size, seal));
        EXPECT_FALSE(OpenMemory(bytes.data(), size, seal));
    }
    EXPECT_EQ(bytes, std::string(32, 's'));
    EXPECT_EQ(AllocateSecret(0), nullptr);
    EXPECT_TRUE(SealMemory(bytes.data(), 0, seal));
    EXPECT_TRUE(OpenMemory(bytes.data(), 0, seal));
    WipeMemory(nullptr, 0);
}

}  // namespace
