#include <MLCore/logging/CLOGDEBUGGERPOLICY.h>

#include <MLCore/platform/DebugOutput.h>

#include <mutex>

namespace MLCore {

void CLOGDEBUGGERPOLICY::Write(const std::string&, const std::string& text) {
    static std::mutex lock;
    const std::lock_guard guard(lock);
    platform::DebugOutput(text.c_str());
    platform::DebugOutput("\r\n");
}

}  // namespace MLCore
