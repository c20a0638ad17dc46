#include <MLCore/platform/File.h>
#include <MLCore/platform/LastError.h>
#include <gtest/gtest.h>
#include <support/TempFile.h>

namespace {

// Most of the seam is tried through the stream over files.

using namespace MLCore::platform;
using support::TEMPFILE;

TEST(FileTest, FailuresLeaveTheirCode) {
    const TEMPFILE file;
    const FILEHANDLE writer = FileOpen(file.path.c_str(), kFileWrite | kFileCreate | kFileExclusive);
    char byte = 0;
    EXPECT_EQ(FileOpen(nullptr, kFileRead), kNoFile);
    EXPECT_EQ(LastError(), 87U);
    EXPECT_EQ(FileOpen(file.path.c_str(), kFileWrite | kFileExclusive), kNoFile);
    EXPECT_EQ(LastError(), 87U);
    EXPECT_EQ(FileRead(kNoFile, &byte, 1), -1);
    EXPECT_EQ(LastError(), 6U);
    EXPECT_EQ(FileWrite(kNoFile, &byte, 1), 0U);
    EXPECT_EQ(LastError(), 6U);
#if defined(_WIN32)
    EXPECT_FALSE(FileRemove(file.path.c_str()));
    EXPECT_EQ(LastError(), 32U);
#endif
    EXPECT_TRUE(FileClose(writer));
    EXPECT_TRUE(FileRemove(file.path.c_str()));
    EXPECT_FALSE(FileRemove(file.path.c_str()));
    EXPECT_EQ(LastError(), 2U);
    EXPECT_FALSE(FileRemove(MLCORE_SOURCE_DIR "/tests"));
    EXPECT_EQ(LastError(), 336U);
}

}  // namespace
