#include <MLCore/platform/DebugOutput.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <string>

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
}

#endif

}  // namespace
