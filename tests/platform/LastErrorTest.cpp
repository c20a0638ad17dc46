#include <MLCore/platform/LastError.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace {

using namespace MLCore::platform;

void SetError(int errorNumber, [[maybe_unused]] unsigned int code) {
#if defined(_WIN32)
    static_cast<void>(errorNumber);
    SetLastError(code);
#else
    errno = errorNumber;
#endif
}

TEST(LastErrorTest, MeansTheSameOnEverySystem) {
    // Codes from the public list of Win32 error codes.
    const struct {
        int errorNumber;
        unsigned int code;
    } kRows[] = {{0, 0},       {ENOENT, 2},   {EACCES, 5},   {EPERM, 5},       {EBADF, 6},
                 {ENOMEM, 8},  {EXDEV, 17},   {EROFS, 19},   {EEXIST, 80},     {EINVAL, 87},
                 {EPIPE, 109}, {ENOSPC, 112}, {ENOSYS, 120}, {ENOTEMPTY, 145}, {EMFILE, 4}};
    for (const auto& row : kRows) {
        SetError(row.errorNumber, row.code);
        EXPECT_EQ(LastError(), row.code) << row.errorNumber;
        EXPECT_EQ(LastError(), row.code) << "reading changes nothing";
    }
}

#if !defined(_WIN32)
TEST(LastErrorTest, AnErrorWithoutCounterpartIsNoSuccess) {
    for (int errorNumber = 1; errorNumber < 200; ++errorNumber) {
        errno = errorNumber;
        EXPECT_NE(LastError(), 0U) << errorNumber;
    }
    errno = 12345;
    EXPECT_EQ(LastError(), 31U);
}

TEST(SystemMessageTest, Win32FacilitySpeaksWithTheSystemsWords) {
    EXPECT_EQ(SystemMessage(0x80070005), "Permission denied");
    EXPECT_EQ(SystemMessage(0x80070002), "No such file or directory");
    EXPECT_EQ(SystemMessage(0x800700B7), "File exists");
    EXPECT_EQ(SystemMessage(0x8007274D), "Connection refused");  // 10061
}

TEST(SystemMessageTest, ComFailuresHaveTexts) {
    EXPECT_EQ(SystemMessage(0x80004005), "Unspecified error");
    for (const unsigned int code : {0x80004002U, 0x80004003U, 0x80004004U, 0x8000FFFFU, 0x80020005U}) {
        EXPECT_NE(SystemMessage(code), "") << std::hex << code;
    }
}

TEST(SystemMessageTest, EveryErrorHasAMessageAsAnHresult) {
    for (int errorNumber = 1; errorNumber < 134; ++errorNumber) {
        errno = errorNumber;
        const unsigned int code = LastError();
        if (code != 31) {
            EXPECT_NE(SystemMessage(0x80070000 + code), "") << errorNumber;
        }
    }
}
#endif

TEST(SystemMessageTest, KnowsTheUsualFailures) {
    for (const unsigned int code : {0x80004001U, 0x80004005U, 0x80070005U, 0x8007000EU, 0x80070057U}) {
        EXPECT_NE(SystemMessage(code), "") << std::hex << code;
    }
}

TEST(SystemMessageTest, IsEmptyForWhatTheSystemDoesNotKnow) {
    EXPECT_EQ(SystemMessage(0x8FFF1234), "");
    EXPECT_EQ(SystemMessage(0x80040205), "");
    EXPECT_EQ(SystemMessage(0x8007FFFE), "");
}

}  // namespace
