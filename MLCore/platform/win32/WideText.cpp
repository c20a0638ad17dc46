#include <MLCore/platform/WideText.h>

#include <MLCore/platform/WinTypes.h>

#include <climits>
#include <cstring>
#include <cwchar>
#include <new>

namespace MLCore::platform {

namespace {

constexpr UINT kCodePage = 1252;

/// The system counts in ints, and a BSTR could not hold more either.
int Length(std::size_t length) {
    if (length > INT_MAX) {
        throw std::bad_alloc();
    }
    return static_cast<int>(length);
}

}  // namespace

std::wstring WideText(const char* ansi) {
    const int length = ansi == nullptr ? 0 : Length(std::strlen(ansi));
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(kCodePage, 0, ansi, length, wide.data(), length);
    return wide;
}

std::string AnsiText(const wchar_t* wide) {
    const int length = wide == nullptr ? 0 : Length(std::wcslen(wide));
    // Characters of two wide ones become fewer.
    std::string ansi(static_cast<std::size_t>(length), '\0');
    const int written = WideCharToMultiByte(kCodePage, 0, wide, length, ansi.data(), length, nullptr, nullptr);
    ansi.resize(static_cast<std::size_t>(written));
    return ansi;
}

bool WidenText(const char* ansi, std::size_t length, wchar_t* wide) noexcept {
    const int count = static_cast<int>(length);
    return MultiByteToWideChar(CP_ACP, 0, ansi, count, wide, count) != 0;
}

}  // namespace MLCore::platform
