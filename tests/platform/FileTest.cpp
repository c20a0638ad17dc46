#include <MLCore/platform/File.h>
#include <MLCore/platform/LastError.h>
#include <gtest/gtest.h>
#include <support/Threads.h>

#include <array>
#include <filesystem>
#include <set>
#include <string>

namespace {

using namespace MLCore::platform;

constexpr unsigned int kNew = kFileWrite | kFileCreate | kFileTruncate;

class FileTest : public testing::Test {
protected:
    void TearDown() override { std::filesystem::remove(path); }

    /// The whole file; "?" when it cannot be read.
    std::string Content() const {
        const FILEHANDLE file = FileOpen(path.c_str(), kFileRead);
        std::string text(FileSize(file) > 0 ? static_cast<std::size_t>(FileSize(file)) : 0, '?');
        const bool isRead = FileSeek(file, 0) && FileRead(file, text.data(), text.size()) == std::int64_t(text.size());
        FileClose(file);
        return isRead ? text : "?";
    }
    /// What opening the file, writing "xy" and closing it leave; on failure the code in brackets.
    std::string AfterWriting(unsigned int flags) const {
        const FILEHANDLE file = FileOpen(path.c_str(), flags);
        const std::string code = '[' + std::to_string(LastError()) + ']';
        if (file == kNoFile) {
            return code;
        }
        EXPECT_EQ(FileWrite(file, "xy", 2), 2U);
        EXPECT_TRUE(FileClose(file));
        return Content();
    }

    const std::string path = (std::filesystem::temp_directory_path() / "MLCoreFileTest.tmp").string();
};

TEST_F(FileTest, FlagsSayWhatBecomesOfTheFile) {
    constexpr unsigned int kBoth = kFileRead | kFileWrite;
    const struct {
        unsigned int flags;
        const char* ofMissing;
        const char* ofPresent;  ///< the file holds "abc"
    } kRows[] = {
        {kFileWrite, "[2]", "xyc"},
        {kBoth, "[2]", "xyc"},
        {kBoth | kFileCreate, "xy", "xyc"},
        {kBoth | kFileTruncate, "[2]", "xy"},
        {kNew, "xy", "xy"},
        {kFileAppend, "[2]", "abcxy"},
        {kFileRead | kFileAppend | kFileCreate, "xy", "abcxy"},
        {kFileWrite | kFileCreate | kFileExclusive, "xy", "[80]"},
        {0, "[87]", "[87]"},
        {kFileRead | kFileCreate, "[87]", "[87]"},
        {kFileRead | kFileTruncate, "[87]", "[87]"},
        {kFileWrite | kFileExclusive, "[87]", "[87]"},
        {kFileWrite | kFileAppend, "[87]", "[87]"},
        {kFileAppend | kFileTruncate, "[87]", "[87]"},
        {kFileWrite | 0x40, "[87]", "[87]"},
    };
    for (const auto& row : kRows) {
        std::filesystem::remove(path);
        EXPECT_EQ(AfterWriting(row.flags), row.ofMissing) << row.flags;
        const FILEHANDLE file = FileOpen(path.c_str(), kNew);
        EXPECT_EQ(FileWrite(file, "abc", 3), 3U);
        FileClose(file);
        EXPECT_EQ(AfterWriting(row.flags), row.ofPresent) << row.flags;
    }
}

TEST_F(FileTest, OffsetsBeyond32Bits) {
    constexpr std::uint64_t kFar = 5'000'000'000;
    const FILEHANDLE file = FileOpen(path.c_str(), kNew | kFileRead);
    EXPECT_TRUE(FileSeek(file, kFar));
    EXPECT_EQ(FileWrite(file, "end", 3), 3U);
    EXPECT_EQ(FileSize(file), std::int64_t(kFar) + 3);
    EXPECT_TRUE(FileResize(file, kFar + 5));
    EXPECT_TRUE(FileSeek(file, kFar - 1));
    std::array<char, 8> bytes = {};
    EXPECT_EQ(FileRead(file, bytes.data(), bytes.size()), 6);
    EXPECT_EQ(std::string(bytes.data(), 6), std::string("\0end\0\0", 6));
    EXPECT_EQ(FileRead(file, bytes.data(), 1), 0) << "the end";
    for (const std::uint64_t offset : {std::uint64_t{1} << 63, ~std::uint64_t{0}}) {
        EXPECT_FALSE(FileSeek(file, offset));
        EXPECT_EQ(LastError(), 87U);
        EXPECT_FALSE(FileResize(file, offset));
        EXPECT_EQ(LastError(), 87U);
    }
    EXPECT_TRUE(FileClose(file));
}

TEST_F(FileTest, FailuresLeaveTheirCode) {
    char byte = 0;
    for (const unsigned int flags : {kFileRead, kFileWrite, kFileRead | kFileAppend | kFileCreate}) {
        EXPECT_EQ(FileOpen(std::filesystem::temp_directory_path().string().c_str(), flags), kNoFile);
        EXPECT_EQ(LastError(), 336U) << "a folder";
    }
    EXPECT_EQ(FileOpen(nullptr, kFileRead), kNoFile);
    EXPECT_EQ(LastError(), 87U);
    EXPECT_FALSE(FileRemove(nullptr));
    EXPECT_FALSE(FileRemove(path.c_str()));
    EXPECT_EQ(LastError(), 2U);
    EXPECT_EQ(FileRead(kNoFile, &byte, 1), -1);
    EXPECT_EQ(LastError(), 6U);
    EXPECT_EQ(FileWrite(kNoFile, &byte, 1), 0U);
    EXPECT_EQ(LastError(), 6U);
    EXPECT_FALSE(FileClose(kNoFile));
#if defined(_WIN32)
    const FILEHANDLE writer = FileOpen(path.c_str(), kNew);
    EXPECT_EQ(FileOpen(path.c_str(), kFileWrite), kNoFile) << "one writer at a time";
    EXPECT_EQ(LastError(), 32U);
    EXPECT_FALSE(FileRemove(path.c_str()));
#else
    const FILEHANDLE writer = FileOpen("/dev/full", kFileWrite);
    EXPECT_EQ(FileWrite(writer, "x", 1), 0U);
    EXPECT_EQ(LastError(), 112U);
#endif
    FileClose(writer);
}

TEST_F(FileTest, LinesOfSeveralAppendersDoNotMix) {
    constexpr int kThreads = 4;
    constexpr int kLines = 200;
    support::RunTogether(kThreads, [&](int thread) {
        const FILEHANDLE file = FileOpen(path.c_str(), kFileAppend | kFileCreate);
        for (int line = 0; line < kLines; ++line) {
            const std::string text(static_cast<std::size_t>(20 + line), static_cast<char>('a' + thread));
            EXPECT_EQ(FileWrite(file, (text + '\n').data(), text.size() + 1), text.size() + 1);
        }
        FileClose(file);
    });
    const std::string content = Content();
    std::set<std::string> lines;
    for (std::size_t at = 0, end = 0; (end = content.find('\n', at)) != std::string::npos; at = end + 1) {
        lines.insert(content.substr(at, end - at));
        EXPECT_EQ(content.find_first_not_of(content[at], at), end) << "one letter a line";
    }
    EXPECT_EQ(lines.size(), std::size_t{kThreads * kLines}) << "each length of each letter";
    EXPECT_TRUE(FileRemove(path.c_str()));
}

}  // namespace
