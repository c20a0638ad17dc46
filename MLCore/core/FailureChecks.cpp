#include <MLCore/core/FailureChecks.h>

#include <MLCore/core/detail/FAILURETEXT.h>
#include <MLCore/platform/LastError.h>

#include <new>
#include <string>

namespace MLCore {

namespace {

void AddSystemMessage(FAILURETEXT& text, unsigned int code) noexcept {
    try {
        if (const std::string message = SystemReason(code); !message.empty()) {
            text.Add(": ");
            text.Add(message);
        }
    } catch (const std::bad_alloc&) {
        // The number says it too.
    }
}

}  // namespace

void ThrowFailure(short code, std::initializer_list<FAILUREPART> parts) {
    const FAILURETEXT text(parts);
    try {
        throw FrameworkException(code, code, FrameworkException::Ordinary, 0, text.Get());
    } catch (const std::bad_alloc&) {
        throw FrameworkException(code, code);  // that there is no memory for a text must not hide what failed
    }
}

void ThrowLastError(std::initializer_list<FAILUREPART> parts) { ThrowSystemCode(platform::LastError(), parts); }

void ThrowSystemCode(unsigned int code, std::initializer_list<FAILUREPART> parts) {
    FAILURETEXT text(parts);
    AddSystemMessage(text, code);
    try {
        throw FrameworkException(code, text.Get());
    } catch (const std::bad_alloc&) {
        throw FrameworkException(code);
    }
}

extern "C" {

short Fail(unsigned short errorClass, short msg) {
    if (errorClass != 0) {
        throw FrameworkException(static_cast<short>(errorClass), msg);
    }
    return 0;
}

void FailOSErr(short code) {
    if (code != 0) {
        throw FrameworkException(code, code);
    }
}

void FailCbErr(short code) {
    if (code != 0 && code != 1) {
        throw FrameworkException(code, code);
    }
}

void FailCoherErr(unsigned short code, const char* text) {
    if (code != 0) {
        const short number = static_cast<short>(code);
        throw FrameworkException(number, number, FrameworkException::Coherence, 0, text);
    }
}

void FailCoherFieldErr(unsigned short code, unsigned short field, const char* text) {
    if (code != 0) {
        const short number = static_cast<short>(code);
        throw FrameworkException(number, number, FrameworkException::FieldCoherence, field, text);
    }
}

void FailFALSE(int value) {
    if (value == 0) {
        throw FrameworkException(kErrBoolean, 0);
    }
}

void FailTRUE(int value) {
    if (value != 0) {
        throw FrameworkException(kErrBoolean, 0);
    }
}

void FailNull(const void* pointer) {
    if (pointer == nullptr) {
        FailOSErr(kErrNull);
    }
}

void FailNullPtr(const void* pointer) { FailNull(pointer); }

void FailLastError(int result) {
    if (result == 0) {
        // Read before the exception's memory is had, which may change it.
        const unsigned int code = platform::LastError();
        throw FrameworkException(code);
    }
}

void FailOLEErr(unsigned int hresult) {
    if ((hresult & 0xFFFFU) != 0) {
        throw FrameworkException(hresult);
    }
}

}  // extern "C"

}  // namespace MLCore
