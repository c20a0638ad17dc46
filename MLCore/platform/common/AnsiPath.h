/// Paths between the ANSI code page of Windows and the system's own characters.
#pragma once

#if defined(_WIN32)

#include <MLCore/platform/WinTypes.h>

#include <string>
#include <string_view>

namespace MLCore::platform {

inline std::wstring WidePath(std::string_view ansi) {
    const int length = static_cast<int>(ansi.size());
    std::wstring wide(ansi.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, wide.data(), length)));
    return wide;
}

/// Empty when the code page lacks a letter: a similar letter or '?' in its place would name another file.
inline std::string AnsiPath(std::wstring_view wide) {
    constexpr std::size_t kMostBytesEach = 4;
    const int length = static_cast<int>(wide.size());
    std::string ansi(wide.size() * kMostBytesEach, '\0');
    ansi.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, ansi.data(),
                                                             static_cast<int>(ansi.size()), nullptr, nullptr)));
    return WidePath(ansi) == wide ? ansi : std::string();
}

}  // namespace MLCore::platform

#endif
