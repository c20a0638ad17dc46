#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CCOUNTINGSTREAM.h>
#include <MLCore/streams/CHANDLESTREAM.h>
#include <MLCore/streams/CMEMSTREAM.h>
#include <MLCore/streams/COSTREAMDECORATORTEXT.h>
#include <gtest/gtest.h>
#include <streams/StreamModel.h>
#include <support/Random.h>

#include <array>
#include <climits>
#include <typeinfo>

namespace {

using namespace MLCore;
using namespace platform;
using namespace streammodel;

template <class STREAM>
void CheckRandomly(unsigned int seed, STREAM& stream, MODEL model) {
    support::RANDOM random(seed);
    for (int step = 0; step < 3000; ++step) {
        const auto what = static_cast<std::size_t>(random() % 7);
        const auto number = static_cast<unsigned>(random() % 80);
        ASSERT_EQ(Do(stream, what, number), Do(model, what, number)) << step;
        if constexpr (requires { stream.GetCapacity(); }) {
            ASSERT_EQ(stream.GetCapacity(), model.size) << step;
        }
    }
    // What is built on other operations is refused by a closed stream too.
    std::string text;
    CBUFFERSTREAM other;
    other.Open();
    stream.Close();
    EXPECT_EQ(FailureOf([&] { stream.GetValue(other); }), 141);
    EXPECT_EQ(FailureOf([&] { stream.GetValue(text, 0); }), 141);
    EXPECT_EQ(FailureOf([&] { stream.SetValue("", -1); }), 141);
    EXPECT_EQ(FailureOf([&] { stream.Rewind(); }), 141);
    EXPECT_EQ(FailureOf([&] { stream << ""; }), 141);
    EXPECT_EQ(FailureOf([&] { stream << static_cast<char*>(nullptr); }), 141);
    stream.Open();
    if (typeid(stream) != typeid(CCOUNTINGSTREAM)) {
        void* const none = nullptr;
        EXPECT_EQ(FailureOf([&] { stream.GetValue(none, 1); }), -100);
        EXPECT_EQ(stream.GetValue(none, 0), 0);
        EXPECT_EQ(FailureOf([&] { stream.SetValue(static_cast<const void*>(none), 4); }), -100);
    }
    stream.SetValue("", LONG_MIN);
    EXPECT_EQ(stream.GetValue(static_cast<void*>(text.data()), -1) + static_cast<long>(stream.GetPosition()), 0);
}

std::string Content(const CBUFFERSTREAM& stream) {
    return {static_cast<const char*>(stream.GetBuffer()), static_cast<std::size_t>(stream.GetSize())};
}

TEST(MemoryStreamsTest, DoAsTheModel) {
    char area[64] = {};
    const std::string zeroBytes(64, '\0');
    CBUFFERSTREAM buffer, zeros;
    CHANDLESTREAM handle(GlobalBlockAlloc(64, kGlobalZeroInit), 1);
    CMEMSTREAM memory(64, area);
    CCOUNTINGSTREAM counting;
    CheckRandomly(4711, buffer, {});
    CheckRandomly(4712, handle, {.bytes = zeroBytes});
    CheckRandomly(4713, memory, {.most = 64, .bytes = zeroBytes});
    CheckRandomly(4714, counting, {.isCounting = true});
    zeros.Open();
    counting.SetSize(1500);
    EXPECT_EQ(counting.GetValue(zeros), 1500);
    EXPECT_EQ(Content(zeros), std::string(1500, '\0'));
    counting.Skip(50);
    EXPECT_EQ(counting.GetValue(zeros) + counting.IsEnd(), 0) << "beyond the end";
}

TEST(MemoryStreamsTest, BytesMoveWithinAStream) {
    CBUFFERSTREAM stream(4, "abcd"), roomy(100);
    EXPECT_EQ(FailureOf([&] { return stream.GetBuffer(); }), 141);
    EXPECT_EQ(FailureOf([] { CBUFFERSTREAM(1, nullptr); }), -100);
    EXPECT_EQ(FailureOf([] { CMEMSTREAM(1, nullptr); }), -100);
    EXPECT_EQ(roomy.GetCapacity() + roomy.GetWritePosition(), 100U);
    stream.Open();
    stream.SetPosition(2);
    stream << "ABCDE";
    stream.SetPosition(1);
    EXPECT_EQ(FailureOf([&] { stream.SetSize(1ULL << 60); }), -100);
    EXPECT_EQ(FailureOf([&] { stream.SetSize(~0ULL); }), -100);
    EXPECT_EQ(stream.GetCapacity() * 100 + stream.GetWritePosition() * 10 + stream.GetPosition(), 771U);
    // Its own bytes, at a place to which they overlap, and from a block that moves.
    stream.SetValue(static_cast<const char*>(stream.GetBuffer()) + 2, long{5});
    EXPECT_EQ(Content(stream), "aABCDEE");
    for (long size = 7; size < 7 << 16; size *= 2) {
        stream.SetPositionFromEnd(0);
        stream.SetValue(stream.GetBuffer(), size);
    }
    EXPECT_EQ(Content(stream).substr((7U << 16) - 14), "aABCDEEaABCDEE");
    char area[] = "0123456";
    CMEMSTREAM memory(0x80000000, area);
    EXPECT_EQ(memory.GetFree(), 0U);
    memory.Open();
    memory.SetValue(area + 1, long{6});
    memory.Rewind();
    memory.GetValue(static_cast<void*>(area + 1), 4);
    EXPECT_STREQ(area, "1123466");
    memory.SetPosition(0x7FFFFFFF);
    memory.OffsetPosition(1);
    memory.SetSize(5);
    EXPECT_EQ(memory.GetFree() + memory.GetWritePosition() * memory.GetPosition(), 0x7FFFFFFBU + 25U);
    STREAMCURSOR cursor(1ULL << 33);
    cursor.SetPosition(0x7FFFFFFF);
    EXPECT_EQ(FailureOf([&] { cursor.Offset(1); }), -110) << "moved within 2 GB only";
}

TEST(MemoryStreamsTest, HandlesAreOwnedOrBorrowed) {
    for (const bool isOwned : {true, false}) {
        void* block = GlobalBlockAlloc(4096);
        {
            CHANDLESTREAM stream(block, isOwned ? 1 : 0);
            stream.Open();
            stream.Open();
            EXPECT_EQ(stream.Detach(), nullptr);
            stream << "0123456789";
            stream.Close();
            EXPECT_EQ(GlobalBlockSize(stream.GetHandle()), 4096U);
            stream.Open();
            stream.SetSize(10);
            for (int i = 0; i < 26; ++i) stream << "letter";
            block = stream.GetHandle();
            EXPECT_EQ(GlobalBlockSize(block), 156U);
            stream << "letter" << 'x';
        }
        EXPECT_EQ(GlobalBlockSize(block), isOwned ? 0U : 163U) << "freed, or of the exact size";
        EXPECT_EQ(GlobalBlockFree(block), !isOwned);
    }
    void* const empty = GlobalBlockAlloc(0);
    CHANDLESTREAM stream(empty, 1);
    stream.Open();
    stream.SetSize(40 << 20);
    EXPECT_NE(GlobalBlockLock(stream.GetHandle()), nullptr);
    EXPECT_EQ(FailureOf([&] { stream.SetSize(80 << 20); }), -100) << "it cannot move";
    EXPECT_EQ(stream.GetSize(), 40U << 20);
    stream.SetSize(0);
    EXPECT_EQ(stream.GetHandle(), nullptr);
    stream << 'n';
    stream.Close();
    void* const detached = stream.Detach();
    EXPECT_EQ(GlobalBlockSize(detached) * 10 + stream.GetCapacity(), 10U);
    EXPECT_NE(GlobalBlockFree(GlobalBlockReAlloc(detached, 40 << 20)), false) << "no lock was left";
}

// The block moves, or loses its spare room, when its handle is asked for.
TEST(MemoryStreamsTest, ABlockThatItsOwnerCutsIsReadToItsEnd) {
    void* const block = GlobalBlockAlloc(1000, kGlobalZeroInit);
    CHANDLESTREAM owner(block, 1), other(block, 0);
    owner.Open();
    owner.SetSize(10);
    owner.Close();
    other.Open();
    std::array<char, 1000> bytes = {};
    EXPECT_EQ(other.GetValue(static_cast<void*>(bytes.data()), 1000L), 10);
    EXPECT_EQ(other.GetSize(), 10U);
}

TEST(MemoryStreamsTest, AFailedGrowthLeavesTheStreamsMemoryKnown) {
    CBUFFERSTREAM stream;
    stream.Open();
    const std::string lines(60000, '\n');
    stream.SetValue(lines);
    EXPECT_EQ(FailureOf([&] { stream.SetSize(1ULL << 60); }), -100);
    COSTREAMDECORATORTEXT(stream).SetValue(stream.GetBuffer(), 60000L);  // moves while it is written
    EXPECT_EQ(stream.GetSize(), 180000U);
    EXPECT_EQ(Content(stream).substr(179996), "\r\n\r\n");
}

TEST(MemoryStreamsTest, AnOpenStreamGivesItsHandleAndGoesOn) {
    CHANDLESTREAM stream;
    stream.Open();
    for (int i = 0; i < 40000; ++i) {
        stream << 'a';
    }
    for (const unsigned long long size : {30000ULL, 20000ULL, 399ULL, 154ULL}) {
        stream.SetSize(size);
        void* const handle = stream.GetHandle();
        EXPECT_EQ(GlobalBlockSize(handle), size);
        stream.SetPositionFromEnd(0);
        stream << 1.0;
        EXPECT_EQ(GlobalBlockSize(stream.GetHandle()), size + sizeof(double));
        stream.SetPosition(size);
        double read = 0;
        stream >> read;
        EXPECT_EQ(read, 1.0);
    }
}

TEST(MemoryStreamsTest, RawOperationsOfADerivedClassAreAsked) {
    struct CCOUNTED : CBUFFERSTREAM {
        using CBUFFERSTREAM::GetValue;
        using CBUFFERSTREAM::SetValue;
        long GetValue(void* data, long count) override {
            asked += count;
            return CBUFFERSTREAM::GetValue(data, count);
        }
        void SetValue(const void* data, long count) override {
            asked += count * 100;
            CBUFFERSTREAM::SetValue(data, count);
        }
        long asked = 0;
    } stream;
    stream.Open();
    stream << 1L << 2.0 << "text";
    stream.Rewind();
    long number = 0;
    std::string text;
    stream >> number;
    stream.Skip(8);
    stream.GetValue(text, 4);
    EXPECT_EQ(stream.asked, 1608);
}

TEST(MemoryStreamsTest, TypedWritesTellTheirCapacityAndEndWithTheStream) {
    CHANDLESTREAM stream;
    stream.Open();
    for (long i = 0; i < 100; ++i) {
        stream << i;
        ASSERT_EQ(stream.GetCapacity(), static_cast<unsigned long long>(4 * (i + 1)));
    }
    EXPECT_EQ(GlobalBlockSize(stream.GetHandle()), 400U);
    stream << 'x';
    stream.Close();
    EXPECT_EQ(FailureOf([&] { stream << 1L; }), 141);
    EXPECT_EQ(GlobalBlockSize(stream.GetHandle()), 401U);
}

}  // namespace
