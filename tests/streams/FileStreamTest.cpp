#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <gtest/gtest.h>
#include <support/Failure.h>
#include <support/Random.h>
#include <support/TempFile.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#if !defined(_WIN32)
#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {

using namespace MLCore;
using support::FailureOf;
using support::TEMPFILE;
using MODE = CSTREAM::OpenMode;

constexpr MODE kBoth = CSTREAM::ReadWrite;
constexpr MODE kNew = kBoth | CSTREAM::Create | CSTREAM::Truncate;
constexpr MODE kLog = kBoth | CSTREAM::Create | CSTREAM::Append;

/// The class and message of a code of the system.
constexpr int System(int code) { return -3000 - code; }

std::string Noise(std::mt19937& random, std::size_t size) {
    std::string text;
    while (text.size() < size) {
        text += std::to_string(random());
    }
    return text.substr(0, size);
}

std::string Read(CFILESTREAM& stream, std::size_t count) {
    std::string text(count, '?');
    void* const buffer = text.data();
    text.resize(static_cast<std::size_t>(stream.GetValue(buffer, static_cast<long>(count))));
    return text;
}

void WalkAtRandom(unsigned int seed, MODE mode) {
    support::RANDOM random(seed);
    const TEMPFILE file;
    std::string model = Noise(random, random() % 300'000);
    std::size_t position = 0;
    file.SetContent(model);
    CFILESTREAM stream(file.path.c_str(), mode);
    stream.Open();
    for (int step = 0; step < 1000; ++step) {
        // mostly less than the buffer, sometimes about as much, seldom more
        constexpr std::size_t kMost[] = {8, 8, 8, 300, 300, 5000, 66'000, 200'000};
        const std::size_t count = random() % kMost[random() % std::size(kMost)];
        const std::size_t place = random() % (model.size() + 1);
        const unsigned long action = random() % 16;
        stream << "";  // changes nothing, wherever the buffer lies
        if (action < 3) {
            action == 0   ? stream.SetPosition(place)
            : action == 1 ? stream.SetPositionFromEnd(model.size() - place)
                          : stream.OffsetPosition(static_cast<long>(place) - static_cast<long>(position));
            position = place;
        } else if (action == 3 && mode != kLog) {
            model.resize(std::min<std::size_t>(place + count, 400'000));
            position = std::min(position, model.size());
            stream.SetSize(model.size());
        } else if (action == 4) {
            stream.Flush();
            ASSERT_EQ(file.GetContent(), model);
        } else if (action == 5) {
            stream.Close();
            stream.Open();
            position = 0;
        } else if (action < 10) {
            ASSERT_EQ(Read(stream, count), model.substr(position, count)) << step;
            position = std::min(position + count, model.size());
        } else if (count != 0) {
            const std::string text = Noise(random, count);
            stream << text;
            position = mode == kLog ? model.size() : position;
            model.replace(position, count, text);
            position += count;
        }
        ASSERT_EQ(stream.GetPosition(), position) << step;
        ASSERT_EQ(stream.GetSize(), model.size()) << step;
        ASSERT_EQ(stream.IsEnd(), position == model.size() ? 1 : 0) << step;
    }
    stream.Close();
    EXPECT_EQ(file.GetContent(), model);
}

TEST(FileStreamTest, AgreesWithATextInMemory) {
    WalkAtRandom(1, kBoth);
    WalkAtRandom(2, kBoth);
    WalkAtRandom(3, kLog);
}

TEST(FileStreamTest, ModesSayWhatOpeningDoes) {
    const struct {
        MODE mode;
        int ofMissing;
        int ofPresent;
        const char* content;  ///< of the file with "abc" after "xy" is written
    } kRows[] = {
        {CSTREAM::Read, System(2), System(5), "abc"},
        {kBoth, System(2), 0, "xyc"},
        {kBoth | CSTREAM::Create, 0, 0, "xyc"},
        {kBoth | CSTREAM::Create | CSTREAM::Exclusive, 0, System(80), "abc"},
        {kBoth | CSTREAM::Truncate, System(2), 0, "xy"},
        {kLog, 0, 0, "abcxy"},
        {CSTREAM::Create, System(87), System(87), "abc"},
        {kLog | CSTREAM::Truncate, System(87), System(87), "abc"},
        {kBoth | static_cast<MODE>(64), System(87), System(87), "abc"},
    };
    for (const auto& row : kRows) {
        const TEMPFILE file;
        const auto write = [&] {
            CFILESTREAM stream(file.path.c_str(), row.mode);
            stream.Open();
            stream << "xy";  // closed by the destructor
        };
        EXPECT_EQ(FailureOf(write), row.ofMissing) << row.mode;
        file.SetContent("abc");
        EXPECT_EQ(FailureOf(write), row.ofPresent) << row.mode;
        EXPECT_EQ(file.GetContent(), row.content) << row.mode;
    }
}

TEST(FileStreamTest, ClosedOrRestricted) {
    const TEMPFILE file;
    file.SetContent("abc");
    CFILESTREAM stream(file.path.c_str());
    CFILESTREAM log(file.path.c_str(), kLog);
    CBUFFERSTREAM out;
    const std::vector<std::function<void()>> actions = {
        [&] { stream.SetSize(0); }, [&] { stream << "x"; },        [&] { log.SetSize(1); },
        [&] { Read(stream, 1); },   [&] { stream.GetValue(out); }, [&] { stream.OffsetPosition(-1); },
        [&] { stream.Flush(); },
    };
    const int kWhenOpen[] = {System(5), System(5), System(5), 0, 141, -110, 0};
    for (const auto& action : actions) {
        EXPECT_EQ(FailureOf(action), 141);
    }
    EXPECT_EQ(stream.IsEnd(), 1);
    EXPECT_EQ(stream.GetSize(), 0);
    EXPECT_EQ(stream.GetPosition(), 0);
    stream.Close();
    log.Open();
    for (std::size_t i = 0; i < actions.size(); ++i) {
        stream.Open();  // once open, it only goes back to the first byte
        EXPECT_EQ(FailureOf(actions[i]), kWhenOpen[i]) << i;
    }
    EXPECT_EQ(Read(stream, 9), "abc");
}

TEST(FileStreamTest, WhatCannotBeOpenedStaysClosed) {
    const TEMPFILE file;
    file.SetContent("abc");
    const auto open = [](const std::string& path, MODE mode) {
        CFILESTREAM stream(path.c_str(), mode);
        const auto failure = FailureOf([&] { stream.Open(); });
        EXPECT_EQ(stream.IsOpen(), failure == 0 ? 1 : 0);
        return failure;
    };
    const std::string folder = std::filesystem::temp_directory_path().string();
    EXPECT_EQ(open(folder, CSTREAM::Read), System(336));
    EXPECT_EQ(open(folder, kLog), System(336));
#if defined(_WIN32)
    CFILESTREAM writer(file.path.c_str(), kBoth);
    writer.Open();
    EXPECT_EQ(open(file.path, kBoth), System(32)) << "one writer at a time";
    EXPECT_EQ(open(file.path, CSTREAM::Read), 0);
#else
    const TEMPFILE pipe;
    EXPECT_EQ(mkfifo(pipe.path.c_str(), 0600), 0);
    EXPECT_EQ(open(pipe.path, CSTREAM::Read), System(132));
    EXPECT_EQ(open("/proc/self/exe", kBoth), System(32));
#endif
    EXPECT_EQ(FailureOf([] { CFILESTREAM stream(nullptr); }), -100);
}

TEST(FileStreamTest, BeyondFourGigabytes) {
    constexpr unsigned long long kFar = 5'000'000'000;
    const TEMPFILE file;
    CFILESTREAM stream(file.path.c_str(), kNew);
    stream.Open();
    stream.SetSize(kFar);
    stream.SetPosition(kFar);
    stream << 8L;
    stream.OffsetPosition(-8);
    EXPECT_EQ(stream.GetPosition(), kFar - 4);
    EXPECT_EQ(Read(stream, 99), std::string("\0\0\0\0\x8\0\0\0", 8));
    EXPECT_EQ(stream.GetSize(), kFar + 4);
    EXPECT_EQ(FailureOf([&] { stream.SetSize(1ULL << 63); }), System(87));
}

TEST(FileStreamTest, EndsWhereSomebodyElseCutsTheFile) {
    const TEMPFILE file;
    CBUFFERSTREAM out;
    out.Open();
    for (const std::size_t first : {10U, 100'000U}) {  // through the buffer, and directly
        file.SetContent(std::string(300'000, 'x'));
        CFILESTREAM stream(file.path.c_str());
        stream.Open();
        Read(stream, first);
        std::filesystem::resize_file(file.path, 100);
        EXPECT_LT(stream.GetValue(out), 100'000);
        EXPECT_EQ(stream.IsEnd(), 1);
        EXPECT_EQ(Read(stream, 70'000), "");
    }
}

TEST(FileStreamTest, AppendersFollowEachOther) {
    const TEMPFILE file;
    CFILESTREAM left(file.path.c_str(), kLog);
    CFILESTREAM right(file.path.c_str(), kLog);
    left.Open();
    right.Open();
    left.Flush();  // nothing yet, from either
    EXPECT_EQ(FailureOf([&] { left.SetValue(static_cast<const void*>(nullptr), 4); }), -100);
    left << "left ";
    right << "right ";
    right.Flush();
    left.Flush();
    EXPECT_EQ(left.GetPosition(), 11U);
    left.Rewind();
    EXPECT_EQ(Read(left, 99), "right left ");
}

#if !defined(_WIN32)

TEST(FileStreamTest, AFullDeviceIsTold) {
    CFILESTREAM stream("/dev/full", kBoth);
    stream.Open();
    stream << "waits";
    EXPECT_EQ(FailureOf([&] { stream << std::string(100'000, 'x'); }), System(112));
    EXPECT_EQ(stream.GetPosition(), 5U) << "what waits still waits, the rest is not taken";
    EXPECT_EQ(FailureOf([&] { stream.Close(); }), System(112));
    EXPECT_EQ(stream.IsOpen(), 0);
}

TEST(FileStreamTest, NothingIsLostWhenThereIsRoomAgain) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit wide = {};
    getrlimit(RLIMIT_FSIZE, &wide);
    const rlimit narrow = {100'001, wide.rlim_max};
    support::RANDOM random(7);
    const std::string text = Noise(random, 300'000);
    const TEMPFILE file;
    CFILESTREAM stream(file.path.c_str(), kNew);
    stream.Open();
    for (const std::size_t piece : {1000U, 200'000U}) {  // through the buffer, and directly
        stream.SetSize(0);
        setrlimit(RLIMIT_FSIZE, &narrow);
        const auto write = [&] { stream << text.substr(stream.GetPosition(), piece); };
        support::FAILURE failure;
        while (failure == 0) {
            failure = FailureOf(write);
        }
        setrlimit(RLIMIT_FSIZE, &wide);
        EXPECT_EQ(failure, System(223));
        EXPECT_EQ(file.GetContent(), text.substr(0, 100'001));
        write();  // the rest of what waits, and more
        stream.Flush();
        EXPECT_EQ(file.GetContent(), text.substr(0, stream.GetPosition()));
    }
    std::signal(SIGXFSZ, SIG_DFL);
}

#endif

}  // namespace
