#include <MLCore/core/FrameworkException.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/detail/FAILURETEXT.h>
#include <MLCore/platform/ComError.h>
#include <MLCore/platform/LastError.h>

#include <algorithm>
#include <ios>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <utility>

namespace MLCore {

namespace {

char* CopyText(std::string_view text) {
    char* const copy = new char[text.size() + 1];
    std::copy_n(text.data(), text.size(), copy);
    copy[text.size()] = '\0';
    return copy;
}

char* CopyText(const char* text) { return text != nullptr ? CopyText(std::string_view(text)) : nullptr; }

std::int16_t NumberOfSystemCode(std::uint32_t code) noexcept {
    // A low word of 0x8000 and above is negative here; the difference then wraps as the 16-bit field does.
    const int low = static_cast<std::int16_t>(code & 0xFFFFU);
    return static_cast<std::int16_t>(-low - 3000);
}

template <class Standard>
bool Is(const std::exception& error) {
    return dynamic_cast<const Standard*>(&error) != nullptr;
}

struct STANDARDCODE {
    bool (*matches)(const std::exception&);
    short code;
};

// Derived classes stand before their bases: the first match decides. 122 stays unused on purpose.
constexpr STANDARDCODE kStandardCodes[] = {
    {Is<std::bad_alloc>, kErrNull},
    {Is<std::bad_exception>, kErrBadException},
    {Is<std::bad_cast>, kErrBadCast},
    {Is<std::bad_typeid>, kErrBadTypeId},
    {Is<std::ios_base::failure>, kErrStreamFailure},
    {Is<std::range_error>, kErrRange},
    {Is<std::overflow_error>, kErrOverflow},
    {Is<std::underflow_error>, kErrUnderflow},
    {Is<std::runtime_error>, kErrRuntime},
    {Is<std::length_error>, kErrLength},
    {Is<std::domain_error>, kErrDomain},
    {Is<std::out_of_range>, kErrOutOfRange},
    {Is<std::invalid_argument>, kErrInvalidArgument},
    {Is<std::logic_error>, kErrLogic},
};

std::string TextOf(const FrameworkException& failure) {
    if (const char* const held = failure.GetText(); held != nullptr && *held != '\0') {
        std::string text = held;
        text.erase(text.find_last_not_of("\r\n") + 1);  // of a message of the system
        return text;
    }
    const std::string message = failure.GetCode() != 0 ? SystemReason(failure.GetCode()) : std::string();
    return !message.empty() ? message : DescribeFailure(failure.GetClass());
}

short CodeOf(const std::exception& error) {
    for (const STANDARDCODE& entry : kStandardCodes) {
        if (entry.matches(error)) {
            return entry.code;
        }
    }
    return kErrOtherException;
}

}  // namespace

FrameworkException::FrameworkException(short errorClass, short msg) noexcept : mClass(errorClass), mMsg(msg) {}

FrameworkException::FrameworkException(short errorClass, short msg, short kind, unsigned short field, const char* text)
    : mClass(errorClass), mMsg(msg), mKind(kind), mField(field), mText(CopyText(text)) {}

FrameworkException::FrameworkException(unsigned int code) noexcept
    : mClass(NumberOfSystemCode(code)), mMsg(mClass), mCode(code) {}

FrameworkException::FrameworkException(unsigned int code, std::string_view text)
    : mClass(NumberOfSystemCode(code)), mMsg(mClass), mCode(code), mText(CopyText(text)) {}

// Delegates first, so that the reference is released even when there is no memory for the text.
FrameworkException::FrameworkException(const _com_error& error) : FrameworkException() {
    mKind = ComError;
    const platform::COMERRORPARTS parts = platform::ReadComError(error);
    mErrorInfo = parts.errorInfo;
    mCode = parts.code;
    mClass = mMsg = NumberOfSystemCode(mCode);
    if (!parts.text.empty()) {
        mText = CopyText(parts.text.c_str());
    }
}

FrameworkException::FrameworkException(const std::exception& error)
    : mClass(CodeOf(error)), mMsg(mClass), mText(CopyText(error.what())) {}

FrameworkException::FrameworkException(const FrameworkException& other)
    : mClass(other.mClass),
      mMsg(other.mMsg),
      mCode(other.mCode),
      mErrorInfo(other.mErrorInfo),
      mKind(other.mKind),
      mField(other.mField),
      mText(CopyText(other.mText)) {
    platform::AddRefErrorInfo(mErrorInfo);
}

FrameworkException::FrameworkException(FrameworkException&& other) noexcept { Swap(other); }

FrameworkException& FrameworkException::operator=(const FrameworkException& other) {
    FrameworkException copy(other);
    Swap(copy);
    return *this;
}

FrameworkException& FrameworkException::operator=(FrameworkException&& other) noexcept {
    Swap(other);
    return *this;
}

FrameworkException::~FrameworkException() {
    platform::ReleaseErrorInfo(mErrorInfo);
    delete[] mText;
}

IErrorInfo* FrameworkException::GetErrorInfo() const noexcept {
    platform::AddRefErrorInfo(mErrorInfo);
    return mErrorInfo;
}

const char* FrameworkException::GetText() const {
    constexpr std::uint32_t kFailureBit = 0x80000000U;
    if (mText == nullptr && (mCode & kFailureBit) != 0) {
        const std::string message = platform::SystemMessage(mCode);
        if (!message.empty()) {
            mText = CopyText(message.c_str());
        }
    }
    return mText;
}

std::ostream& operator<<(std::ostream& out, const FrameworkException& failure) {
    std::string line = "MLCore failure " + std::to_string(failure.GetClass());
    if (failure.GetMsg() != failure.GetClass()) {
        line.append("/").append(std::to_string(failure.GetMsg()));
    }
    if (failure.GetField() != 0) {
        line.append(", field ").append(std::to_string(failure.GetField()));
    }
    return out << line.append(": ").append(TextOf(failure));
}

void FrameworkException::Swap(FrameworkException& other) noexcept {
    std::swap(mClass, other.mClass);
    std::swap(mMsg, other.mMsg);
    std::swap(mCode, other.mCode);
    std::swap(mErrorInfo, other.mErrorInfo);
    std::swap(mKind, other.mKind);
    std::swap(mField, other.mField);
    std::swap(mText, other.mText);
}

}  // namespace MLCore
