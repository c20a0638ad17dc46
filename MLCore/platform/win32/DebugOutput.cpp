#include <MLCore/platform/DebugOutput.h>
#include <MLCore/platform/WinTypes.h>

#include <atomic>

namespace MLCore::platform {

namespace {

std::atomic<DEBUGSINK> gSink = nullptr;

}  // namespace

void DebugOutput(const char* text) noexcept {
    if (text == nullptr) {
        return;
    }
    const DEBUGSINK sink = gSink.load();
    if (sink != nullptr) {
        sink(text);
        return;
    }
    const DWORD savedError = GetLastError();
    OutputDebugStringA(text);
    SetLastError(savedError);
}

DEBUGSINK SetDebugSink(DEBUGSINK sink) noexcept { return gSink.exchange(sink); }

}  // namespace MLCore::platform
