#include <MLCore/platform/ComError.h>

#include <MLCore/platform/LastError.h>
#include <MLCore/platform/WinTypes.h>

#include <cstdio>

namespace MLCore::platform {

namespace {

/// The text for a code: made here and not by `_com_error::ErrorMessage`, whose character type depends on the settings
/// that its user was compiled with.
std::string MessageOf(const _com_error& error) {
    std::string message = SystemMessage(static_cast<unsigned int>(error.Error()));
    while (!message.empty() && (message.back() == '\n' || message.back() == '\r')) {
        message.pop_back();
    }
    if (message.empty()) {
        char text[32] = "";
        if (error.WCode() != 0) {
            std::snprintf(text, sizeof(text), "IDispatch error #%d", static_cast<int>(error.WCode()));
        } else {
            std::snprintf(text, sizeof(text), "Unknown error 0x%0lX", static_cast<unsigned long>(error.Error()));
        }
        message = text;
    }
    return message;
}

/// The description in code page 1252, empty when there is none.
std::string DescriptionOf(const _com_error& error) {
    const _bstr_t description = error.Description();
    const int wideLength = static_cast<int>(description.length());
    if (wideLength == 0) {
        return {};
    }
    constexpr UINT kCodePage = 1252;
    const wchar_t* wide = description;
    const int length = WideCharToMultiByte(kCodePage, 0, wide, wideLength, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(kCodePage, 0, wide, wideLength, text.data(), length, nullptr, nullptr);
    return text;
}

}  // namespace

COMERRORPARTS ReadComError(const _com_error& error) {
    COMERRORPARTS parts;
    parts.code = static_cast<unsigned int>(error.Error());
    parts.text = DescriptionOf(error);
    if (parts.text.empty()) {
        parts.text = MessageOf(error);
    }
    parts.errorInfo = error.ErrorInfo();  // last: nothing can fail after the reference is taken
    return parts;
}

}  // namespace MLCore::platform
