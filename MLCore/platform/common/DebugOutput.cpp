#include <MLCore/platform/DebugOutput.h>

#include <MLCore/platform/common/SystemSide.h>

#include <atomic>

namespace MLCore::platform {

namespace {

std::atomic<DEBUGSINK> gSink = nullptr;

}  // namespace

void DebugOutput(const char* text) noexcept {
    if (text == nullptr) {
        return;
    }
    if (const DEBUGSINK sink = gSink.load()) {
        sink(text);
    } else {
        SystemDebugOutput(text);
    }
}

DEBUGSINK SetDebugSink(DEBUGSINK sink) noexcept { return gSink.exchange(sink); }

}  // namespace MLCore::platform
