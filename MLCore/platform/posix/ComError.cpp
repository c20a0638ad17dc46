#include <MLCore/platform/ComError.h>

#include <MLCore/platform/WinTypes.h>

namespace MLCore::platform {

COMERRORPARTS ReadComError(const _com_error& error) {
    COMERRORPARTS parts;
    parts.code = static_cast<unsigned int>(error.Error());
    const _bstr_t description = error.Description();
    if (const char* const text = description; text != nullptr) {
        parts.text = text;
    }
    if (parts.text.empty()) {
        parts.text = error.ErrorMessage();
    }
    parts.errorInfo = error.ErrorInfo();  // last: nothing can fail after the reference is taken
    return parts;
}

}  // namespace MLCore::platform
