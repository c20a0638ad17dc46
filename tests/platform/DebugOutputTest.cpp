#include <MLCore/platform/DebugOutput.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <string>
#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace {

using namespace MLCore::platform;

std::string gSeen;

void Remember(const char* text) { gSeen += text; }

TEST(DebugOutputTest, GoesToTheSinkWhileOneIsSet) {
    gSeen.clear();
    const DEBUGSINK previous = SetDebugSink(Remember);
    DebugOutput("one");
    DebugOutput(nullptr);
    DebugOutput("\r\n");
    EXPECT_EQ(SetDebugSink(previous), Remember);
    EXPECT_EQ(gSeen, "one\r\n");
}

#if defined(_WIN32)

/// The system raises this exception, with length and address of the text, and goes on when a handler takes it.
LONG CALLBACK TakeDebugText(EXCEPTION_POINTERS* pointers) {
    constexpr DWORD kDebugText = 0x40010006;
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    if (record.ExceptionCode != kDebugText) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    gSeen += reinterpret_cast<const char*>(record.ExceptionInformation[1]);
    return EXCEPTION_CONTINUE_EXECUTION;
}

TEST(DebugOutputTest, GoesToTheDebuggerOtherwise) {
    gSeen.clear();
    void* const handler = AddVectoredExceptionHandler(1, TakeDebugText);
    DebugOutput("to the debugger");
    RemoveVectoredExceptionHandler(handler);
    EXPECT_EQ(gSeen, "to the debugger");
}

#else

TEST(DebugOutputTest, GoesToStandardErrorOtherwise) {
    testing::internal::CaptureStderr();
    DebugOutput("to standard error\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "to standard error\n");
    // Nobody reads it any more, and the program goes on.
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    const int before = dup(STDERR_FILENO);
    dup2(ends[1], STDERR_FILENO);
    close(ends[0]);
    close(ends[1]);
    DebugOutput("lost");
    dup2(before, STDERR_FILENO);
    close(before);
}

#endif

}  // namespace
