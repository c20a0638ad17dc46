// Where in the process's memory a password can be read. Wine's protection leaves memory as it is, so Linux only.
#if !defined(_WIN32)

#include <MLCore/crypto/CPASSWORD.h>
#include <MLCore/platform/ProtectedMemory.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>
#include <utility>

namespace {

using namespace MLCore;

/// The marker is these characters, each with the mask laid over it, so that the program itself does not hold it.
constexpr char kMasked[] = "a marker that stands nowhere";
/// Searched for is its end: the heap overwrites the begin of a block that is freed.
constexpr const char* kTail = kMasked + 16;
constexpr std::size_t kTailLength = sizeof(kMasked) - 1 - 16;
volatile char gMask = 0x15;

/// One region of memory after the other. The region that this stands in is too large for it, and so are a sanitizer's
/// tables.
char gRegion[1U << 26];

template <class Character>
int CountInRegion(std::size_t size) {
    const auto isMarker = [mask = gMask](const char* at) {
        for (std::size_t i = 0; i < kTailLength * sizeof(Character); ++i) {
            if (at[i] != (i % sizeof(Character) == 0 ? static_cast<char>(kTail[i / sizeof(Character)] ^ mask) : '\0')) {
                return false;
            }
        }
        return true;
    };
    int count = 0;
    const char* const end = gRegion + size - kTailLength * sizeof(Character);
    for (const char* at = gRegion; (at = std::find(at, end, static_cast<char>(kTail[0] ^ gMask))) != end; ++at) {
        count += isMarker(at) ? 1 : 0;
    }
    return count;
}

/// The marker's copies in the process's memory, in narrow and in wide characters.
std::pair<int, int> Copies() {
    std::pair<int, int> copies{0, 0};
    const int memory = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    std::FILE* const maps = std::fopen("/proc/self/maps", "r");
    std::array<char, 8192> line{};
    while (std::fgets(line.data(), line.size(), maps) != nullptr) {
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
        char readable = '-';
        std::sscanf(line.data(), "%" SCNx64 "-%" SCNx64 " %c", &begin, &end, &readable);
        const std::size_t size = end - begin;
        // The kernel's own pages cannot be read.
        if (readable == 'r' && size < sizeof(gRegion) &&
            pread(memory, gRegion, size, static_cast<off_t>(begin)) == static_cast<ssize_t>(size)) {
            copies.first += CountInRegion<char>(size);
            copies.second += CountInRegion<wchar_t>(size);
        }
    }
    std::fclose(maps);
    close(memory);
    return copies;
}

std::unique_ptr<CPASSWORD> MakeMarker() {
    std::array<char, sizeof(kMasked)> marker{};
    std::transform(kMasked, kTail + kTailLength, marker.begin(), [](char c) { return static_cast<char>(c ^ gMask); });
    auto password = CPASSWORD::Create(marker.data());
    platform::WipeMemory(marker.data(), marker.size());
    return password;
}

TEST(PasswordMemoryTest, IsReadableBetweenLockAndUnlockOnly) {
    using Found = std::pair<int, int>;
    const Found kNowhere{0, 0};
    ASSERT_EQ(Copies(), kNowhere);
    auto password = MakeMarker();
    EXPECT_EQ(Copies(), kNowhere);
    for (int round = 0; round < 2; ++round) {
        password->Lock();
        EXPECT_EQ(Copies(), (Found{1, round}));
        password->Unlock();
        EXPECT_EQ(Copies(), kNowhere);
        EXPECT_NE(static_cast<const wchar_t*>(*password), nullptr);
        EXPECT_EQ(Copies(), kNowhere);
    }
    // Each Lock() waits for its Unlock(); further ones do nothing.
    password->Unlock();
    password->Lock();
    password->Lock();
    password->Unlock();
    EXPECT_EQ(Copies(), (Found{1, 1}));
    const auto clone = password->Clone();
    const auto other = MakeMarker();
    EXPECT_TRUE(*password == *clone);
    EXPECT_TRUE(*clone == *other);
    EXPECT_TRUE(*clone == *clone);
    EXPECT_TRUE(static_cast<const wchar_t*>(*clone));
    EXPECT_EQ(Copies(), (Found{1, 1}));
    CPASSWORD taken(std::move(*password));
    EXPECT_EQ(Copies(), (Found{1, 1}));
    taken.Unlock();
    EXPECT_EQ(Copies(), kNowhere);
    taken.Lock();
    taken = std::move(*other);
    EXPECT_EQ(Copies(), kNowhere);
    clone->Lock();
    EXPECT_EQ(Copies(), (Found{1, 1}));
    EXPECT_EQ(static_cast<const wchar_t*>(*clone)[2], static_cast<wchar_t>(kMasked[2] ^ gMask));
    *clone = std::move(taken);
    EXPECT_EQ(Copies(), kNowhere);
}

}  // namespace

#endif
