#include <MLCore/platform/RandomBytes.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

using MLCore::platform::RandomBytes;

TEST(RandomBytesTest, FillsEverythingWithEveryByteValue) {
    std::vector<unsigned char> bytes(1 << 20);
    ASSERT_TRUE(RandomBytes(bytes.data(), bytes.size()));
    std::array<int, 256> counts{};
    for (const unsigned char byte : bytes) {
        ++counts[byte];
    }
    // 4096 of each are expected with a standard deviation of 64: ten of them never happen.
    for (const int count : counts) {
        EXPECT_NEAR(count, 4096, 640);
    }
}

TEST(RandomBytesTest, StaysWithinItsBytes) {
    EXPECT_TRUE(RandomBytes(nullptr, 0));
    std::array<unsigned char, 34> bytes{};
    std::array<unsigned char, 34> others{};
    ASSERT_TRUE(RandomBytes(bytes.data() + 1, 32));
    ASSERT_TRUE(RandomBytes(others.data() + 1, 32));
    EXPECT_EQ(bytes.front() + bytes.back(), 0);
    EXPECT_NE(bytes, others);
}

}  // namespace
