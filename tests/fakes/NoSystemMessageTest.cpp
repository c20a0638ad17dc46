// In the place of the platform's last error: a system that tells what the test wants, normally nothing.

#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/FrameworkException.h>
#include <MLCore/platform/LastError.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <new>

namespace {

unsigned int gLastError = 0;
std::string gMessage;
bool gIsOutOfMemory = false;

}  // namespace

namespace MLCore::platform {

unsigned int LastError() noexcept { return gLastError; }

std::string SystemMessage(unsigned int) {
    if (gIsOutOfMemory) {
        throw std::bad_alloc();
    }
    return gMessage;
}

}  // namespace MLCore::platform

namespace {

using namespace MLCore;

TEST(NoSystemMessageTest, TheTextIsNullUntilTheSystemHasOne) {
    const FrameworkException failure(0x80070005U);
    EXPECT_EQ(failure.GetText(), nullptr);
    const FrameworkException copy(failure);
    gIsOutOfMemory = true;
    EXPECT_THROW(static_cast<void>(failure.GetText()), std::bad_alloc);
    gIsOutOfMemory = false;
    gMessage = "at last";
    EXPECT_STREQ(failure.GetText(), "at last");
    EXPECT_STREQ(copy.GetText(), "at last");
    EXPECT_EQ(FrameworkException(5U).GetText(), nullptr) << "never asked for";
    gMessage.clear();
    EXPECT_STREQ(failure.GetText(), "at last") << "kept";
}

TEST(NoSystemMessageTest, ComErrorsHaveATextAllTheSame) {
    const FrameworkException failure{_com_error(E_ACCESSDENIED)};
    EXPECT_STREQ(failure.GetText(), "Unknown error 0x80070005");
}

TEST(NoSystemMessageTest, ATextStandsWithoutAMessage) {
    const auto fail = [] { return FailWithLastError("cannot open ", 7), 0; };
    gLastError = 5;
    EXPECT_EQ(support::FailureOf(fail), (support::FAILURE{-3005, -3005, 5, "cannot open 7"}));
    gMessage = " .\r\n";
    EXPECT_EQ(support::FailureOf(fail).text, "cannot open 7");
    gMessage = "Not. Today. \r\n";
    EXPECT_EQ(support::FailureOf(fail).text, "cannot open 7: Not. Today");
    gIsOutOfMemory = true;
    EXPECT_EQ(support::FailureOf(fail), (support::FAILURE{-3005, -3005, 5, "cannot open 7"}));
    gIsOutOfMemory = false;
    gMessage.clear();
}

TEST(NoSystemMessageTest, AFailureWithoutALastErrorIsAFailure) {
    for (const unsigned int code : {0U, 5U}) {
        gLastError = code;
        try {
            FailLastError(0);
            ADD_FAILURE() << code;
        } catch (const FrameworkException& failure) {
            EXPECT_EQ(failure.GetCode(), code);
            EXPECT_EQ(failure.GetMsg(), -3000 - static_cast<int>(code));
        }
    }
}

}  // namespace
