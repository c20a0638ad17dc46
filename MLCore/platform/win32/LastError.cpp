#include <MLCore/platform/LastError.h>

#include <MLCore/platform/WinTypes.h>

#include <memory>

namespace MLCore::platform {

namespace {

struct LOCALFREE {
    void operator()(char* text) const noexcept { LocalFree(text); }
};

}  // namespace

unsigned int LastError() noexcept { return GetLastError(); }

std::string SystemMessage(unsigned int code) {
    constexpr DWORD kFlags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    constexpr DWORD kLanguage = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);
    static_assert(kFlags == 0x1300 && kLanguage == 0x400);

    char* buffer = nullptr;  // with the first flag, the argument for the text is the address of a pointer
    const DWORD length = FormatMessageA(kFlags, nullptr, code, kLanguage, reinterpret_cast<char*>(&buffer), 0, nullptr);
    if (length == 0) {
        return {};  // the pointer means nothing after a failure
    }
    const std::unique_ptr<char, LOCALFREE> owner(buffer);
    return std::string(buffer, length);
}

}  // namespace MLCore::platform
