#include <MLCore/platform/ComError.h>

#include <MLCore/platform/LastError.h>
#include <MLCore/platform/WideText.h>
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

}  // namespace

COMERRORPARTS ReadComError(const _com_error& error) {
    COMERRORPARTS parts;
    parts.code = static_cast<unsigned int>(error.Error());
    parts.text = AnsiText(error.Description());
    if (parts.text.empty()) {
        parts.text = MessageOf(error);
    }
    parts.errorInfo = error.ErrorInfo();  // last: nothing can fail after the reference is taken
    return parts;
}

}  // namespace MLCore::platform
