#include <MLCore/platform/ComError.h>

#include <MLCore/platform/LastError.h>
#include <MLCore/platform/WideText.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/platform/common/ComErrorText.h>

namespace MLCore::platform {

namespace {

/// The text for a code: made here and not by `_com_error::ErrorMessage`, whose character type depends on the settings
/// that its user was compiled with.
std::string MessageOf(unsigned int code) {
    std::string message = SystemMessage(code);
    while (!message.empty() && (message.back() == '\n' || message.back() == '\r')) {
        message.pop_back();
    }
    return message.empty() ? ComErrorText(code) : message;
}

}  // namespace

COMERRORPARTS ReadComError(const _com_error& error) {
    COMERRORPARTS parts;
    parts.code = static_cast<unsigned int>(error.Error());
    parts.text = AnsiText(error.Description());
    if (parts.text.empty()) {
        parts.text = MessageOf(parts.code);
    }
    parts.errorInfo = error.ErrorInfo();  // last: nothing can fail after the reference is taken
    return parts;
}

}  // namespace MLCore::platform
