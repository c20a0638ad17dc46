#include <MLCore/platform/LastError.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace {

using namespace MLCore::platform;

TEST(LastErrorTest, MeansTheSameOnEverySystem) {
    // Codes from the public list of Win32 error codes.
    const struct {
        int errorNumber;
        unsigned int code;
    } kRows[] = {{0, 0},       {ENOENT, 2},   {EACCES, 5},   {EPERM, 5},       {EBADF, 6},
                 {ENOMEM, 8},  {EXDEV, 17},   {EROFS, 19},   {EEXIST, 80},     {EINVAL, 87},
                 {EPIPE, 109}, {ENOSPC, 112}, {ENOSYS, 120}, {ENOTEMPTY, 145}, {EMFILE, 4}};
    for (const auto& row : kRows) {
#if defined(_WIN32)
        SetLastError(row.code);
#else
        errno = row.errorNumber;
#endif
        EXPECT_EQ(LastError(), row.code) << row.errorNumber;
        EXPECT_EQ(LastError(), row.code) << "reading changes nothing";
    }
}

#if !defined(_WIN32)
TEST(LastErrorTest, EveryErrorHasACodeAndAMessage) {
    for (int errorNumber = 1; errorNumber < 200; ++errorNumber) {
        errno = errorNumber;
        const unsigned int code = LastError();
        EXPECT_NE(code, 0U) << errorNumber;
        if (code != 31) {
            EXPECT_NE(SystemMessage(0x80070000 + code), "") << errorNumber;
        }
    }
    errno = 12345;
    EXPECT_EQ(LastError(), 31U);
}

TEST(SystemMessageTest, SpeaksWithTheSystemsWords) {
    EXPECT_EQ(SystemMessage(0x80070005), "Permission denied");
    EXPECT_EQ(SystemMessage(0x80070002), "No such file or directory");
    EXPECT_EQ(SystemMessage(0x800700B7), "File exists");
    EXPECT_EQ(SystemMessage(0x8007274D), "Connection refused");  // 10061
    EXPECT_EQ(SystemMessage(0x80004005), "Unspecified error");
    EXPECT_EQ(SystemMessage(0x8000FFFF), "Unexpected failure");
}
#endif

TEST(SystemMessageTest, KnowsTheUsualFailuresOnly) {
    for (const unsigned int code : {0x80004001U, 0x80004005U, 0x80070005U, 0x8007000EU, 0x80070057U}) {
        EXPECT_NE(SystemMessage(code), "") << std::hex << code;
    }
    for (const unsigned int code : {0x8FFF1234U, 0x80040205U, 0x8007FFFEU}) {
        EXPECT_EQ(SystemMessage(code), "") << std::hex << code;
    }
}

}  // namespace
