// In the place of the platform's protected memory and random bytes: ones that fail at a chosen call.

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/crypto/CPASSWORD.h>
#include <MLCore/platform/RandomBytes.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/Failure.h"

namespace {

using MLCore::CPASSWORD;
using support::FailureOf;

int gCallsToFailure = -1;
bool gHasSealFailed = false;
int gStuckAt = -1;
std::vector<std::size_t> gSizes;       // of all pieces that were asked for
std::map<void*, std::size_t> gLive;    // those that are not freed
std::set<const void*> gRandomBuffers;  // not wiped yet

bool Fails() { return gCallsToFailure >= 0 && gCallsToFailure-- == 0; }

bool Flip(void* memory, std::size_t size) {
    char* const bytes = static_cast<char*>(memory);
    std::for_each(bytes, bytes + size, [](char& byte) { byte = static_cast<char>(byte ^ 0x55); });
    return true;
}

}  // namespace

namespace MLCore::platform {

bool RandomBytes(void* buffer, std::size_t size) noexcept {
    gRandomBuffers.insert(buffer);
    unsigned char* const bytes = static_cast<unsigned char*>(buffer);
    std::generate_n(bytes, size, [] { return static_cast<unsigned char>(gStuckAt < 0 ? std::rand() >> 4 : gStuckAt); });
    return !Fails();
}

void* AllocateSecret(std::size_t size) noexcept {
    if (Fails()) {
        return nullptr;
    }
    gSizes.push_back(size);
    void* const memory = std::calloc(size, 1);
    gLive[memory] = size;
    return memory;
}

void FreeSecret(void* memory, std::size_t size) noexcept {
    const auto piece = gLive.extract(memory);
    if (memory != nullptr) {
        EXPECT_EQ(piece.empty() ? 0 : piece.mapped(), size);
    }
    std::free(memory);
}

bool SealMemory(void* memory, std::size_t size, MEMORYSEAL&) noexcept {
    return Fails() ? !(gHasSealFailed = true) : Flip(memory, size);
}

bool OpenMemory(void* memory, std::size_t size, const MEMORYSEAL&) noexcept { return !Fails() && Flip(memory, size); }

void WipeMemory(void* memory, std::size_t size) noexcept {
    gRandomBuffers.erase(memory);
    std::fill_n(static_cast<char*>(memory), size, '\0');
}

}  // namespace MLCore::platform

namespace {

const std::string kText = "longer than one block";

bool IsReadable(const CPASSWORD& password) {
    return kText.compare(0, kText.size(), static_cast<const char*>(password), kText.size()) == 0;
}

TEST(NoProtectionTest, EachFailureIsToldAndHarmless) {
    const std::function<void(CPASSWORD&, CPASSWORD&)> actions[] = {
        [](auto&, auto&) { static_cast<void>(CPASSWORD::Create(short{20})); },
        [](auto&, auto&) { static_cast<void>(CPASSWORD::CreateStrong(20)); },
        [](auto&, auto&) { static_cast<void>(CPASSWORD::CreateSecure(20)); },
        [](auto& left, auto&) { static_cast<void>(left.Clone()); },
        [](auto& left, auto& right) { static_cast<void>(left == right); },
        [](auto& left, auto&) { static_cast<void>(static_cast<const wchar_t*>(left)), left.Lock(), left.Unlock(); },
    };
    for (const auto& action : actions) {
        for (int calls = 0, isReached = 1; isReached != 0; ++calls) {
            {
                const auto left = CPASSWORD::Create(kText.c_str());
                const auto right = CPASSWORD::Create(kText.c_str());
                gHasSealFailed = false;
                gCallsToFailure = calls;
                const auto failure = FailureOf([&] { return action(*left, *right), 0; });
                isReached = gCallsToFailure < 0 ? 1 : 0;
                gCallsToFailure = -1;
                EXPECT_EQ(failure != 0, isReached != 0);
                EXPECT_NE(failure.text.empty(), isReached != 0);
                EXPECT_EQ(failure.text.find("longer"), std::string::npos) << "no part of the secret";
                EXPECT_EQ(failure.text.find_first_of("0123456789"), std::string::npos) << "nor its length";
                EXPECT_LE(IsReadable(*left) + IsReadable(*right), gHasSealFailed ? 1 : 0);
                left->Unlock();
                right->Unlock();
                EXPECT_FALSE(IsReadable(*left));
                EXPECT_FALSE(IsReadable(*right));
                left->Lock();
                right->Lock();
                EXPECT_TRUE(IsReadable(*left));
                EXPECT_TRUE(IsReadable(*right));
            }
            EXPECT_TRUE(gLive.empty());
            EXPECT_TRUE(gRandomBuffers.empty());
        }
    }
}

TEST(NoProtectionTest, AGeneratorThatRepeatsItselfIsRefused) {
    for (const int byte : {0, 255, -1}) {
        gStuckAt = byte;
        EXPECT_EQ(FailureOf([] { return CPASSWORD::CreateSecure(4); }), byte < 0 ? 0 : MLCore::kErrRuntime);
    }
}

TEST(NoProtectionTest, BuffersAreMultiplesOfABlock) {
    gSizes.clear();
    for (const short length : {short{8}, short{15}, short{16}}) {
        EXPECT_NE(static_cast<const wchar_t*>(*CPASSWORD::Create(length)), nullptr);
    }
    constexpr std::size_t kWide = sizeof(wchar_t);
    EXPECT_EQ(gSizes, (std::vector<std::size_t>{16, 16 * kWide, 16, 16 * kWide, 32, 32 * kWide}));
}

}  // namespace
