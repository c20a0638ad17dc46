#include <MLCore/platform/WinTypes.h>

#include <MLCore/platform/AnsiCodePoints.h>
#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/platform/LastError.h>
#include <MLCore/platform/OleDate.h>
#include <MLCore/platform/WideText.h>
#include <MLCore/platform/common/ComErrorText.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>
#include <utility>

namespace {

using namespace MLCore::platform;

wchar_t WideOf(char character) noexcept { return static_cast<wchar_t>(CodePointOf(character)); }

char NarrowOf(wchar_t character) noexcept {
    const int byte = AnsiOf(static_cast<char32_t>(character));
    return byte < 0 ? '?' : static_cast<char>(byte);
}

/// A new BSTR, or null for null.
BSTR CopyOf(const wchar_t* text, UINT length) {
    if (text == nullptr) {
        return nullptr;
    }
    const BSTR copy = SysAllocStringLen(text, length);
    if (copy == nullptr) {
        throw std::bad_alloc();
    }
    return copy;
}

}  // namespace

bool MLCore::platform::WidenText(const char* ansi, std::size_t length, wchar_t* wide) noexcept {
    std::transform(ansi, ansi + length, wide, WideOf);
    return true;
}

HRESULT VarDateFromUdate(UDATE* udate, ULONG flags, DATE* date) noexcept {
    if (udate == nullptr || date == nullptr || flags != 0) {
        return E_INVALIDARG;
    }
    const auto number = [](WORD field) { return static_cast<int>(static_cast<std::int16_t>(field)); };
    const SYSTEMTIME& time = udate->st;
    const CIVILTIME civil{number(time.wYear), number(time.wMonth),  number(time.wDay),
                          number(time.wHour), number(time.wMinute), number(time.wSecond)};
    return OleDateFromCivil(civil, *date) ? S_OK : E_INVALIDARG;
}

HRESULT VarUdateFromDate(DATE date, ULONG flags, UDATE* udate) noexcept {
    CIVILTIME civil;
    if (udate == nullptr || flags != 0 || !CivilFromOleDate(date, civil)) {
        return E_INVALIDARG;
    }
    const std::chrono::year year{civil.year};
    const std::chrono::sys_days day = year / civil.month / civil.day;
    udate->st = SystemTimeFromCivil(civil, static_cast<int>(std::chrono::weekday{day}.c_encoding()));
    udate->wDayOfYear = static_cast<USHORT>((day - std::chrono::sys_days(year / 1 / 1)).count() + 1);
    return S_OK;
}

// A BSTR points to the characters, which follow the 32-bit length of the text in bytes.

BSTR SysAllocString(const OLECHAR* text) noexcept {
    if (text == nullptr) {
        return nullptr;
    }
    const std::size_t length = std::wcslen(text);
    return length <= std::numeric_limits<UINT>::max() ? SysAllocStringLen(text, static_cast<UINT>(length)) : nullptr;
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept {
    const std::uint64_t byteLength = std::uint64_t{length} * sizeof(OLECHAR);
    if (byteLength > std::numeric_limits<std::uint32_t>::max()) {
        return nullptr;
    }
    const std::uint32_t prefix = static_cast<std::uint32_t>(byteLength);
    unsigned char* const block = static_cast<unsigned char*>(std::malloc(sizeof(prefix) + prefix + sizeof(OLECHAR)));
    if (block == nullptr) {
        return nullptr;
    }
    std::memcpy(block, &prefix, sizeof(prefix));
    const BSTR result = reinterpret_cast<BSTR>(block + sizeof(prefix));
    if (text != nullptr) {
        std::memcpy(result, text, prefix);
    }
    result[length] = 0;
    return result;
}

void SysFreeString(BSTR text) noexcept {
    if (text != nullptr) {
        std::free(reinterpret_cast<unsigned char*>(text) - sizeof(std::uint32_t));
    }
}

UINT SysStringLen(BSTR text) noexcept {
    if (text == nullptr) {
        return 0;
    }
    std::uint32_t prefix = 0;
    std::memcpy(&prefix, reinterpret_cast<const unsigned char*>(text) - sizeof(prefix), sizeof(prefix));
    return prefix / static_cast<UINT>(sizeof(OLECHAR));
}

_bstr_t::_bstr_t(const char* text) {
    if (text != nullptr) {
        std::wstring wide;
        for (const char* at = text; *at != 0; ++at) {
            wide += WideOf(*at);
        }
        mText = CopyOf(wide.c_str(), static_cast<UINT>(wide.size()));
    }
}

_bstr_t::_bstr_t(const wchar_t* text)
    : mText(CopyOf(text, text == nullptr ? 0 : static_cast<UINT>(std::wcslen(text)))) {}

_bstr_t::_bstr_t(BSTR text, bool copy) : mText(copy ? CopyOf(text, SysStringLen(text)) : text) {}

_bstr_t::_bstr_t(const _bstr_t& other) : mText(CopyOf(other.mText, other.length())) {}

_bstr_t::_bstr_t(_bstr_t&& other) noexcept : mText(std::exchange(other.mText, nullptr)) { other.mHasNarrow = false; }

_bstr_t& _bstr_t::operator=(_bstr_t other) noexcept {
    std::swap(mText, other.mText);
    mHasNarrow = false;
    return *this;
}

_bstr_t::~_bstr_t() { SysFreeString(mText); }

_bstr_t::operator const wchar_t*() const noexcept { return mText; }

_bstr_t::operator const char*() const {
    if (mText == nullptr) {
        return nullptr;
    }
    if (!mHasNarrow) {
        mNarrow.clear();
        for (UINT i = 0; i < length(); ++i) {
            mNarrow += NarrowOf(mText[i]);
        }
        mHasNarrow = true;
    }
    return mNarrow.c_str();
}

unsigned int _bstr_t::length() const noexcept { return SysStringLen(mText); }

bool _bstr_t::operator!() const noexcept { return mText == nullptr; }

BSTR _bstr_t::Detach() noexcept {
    mHasNarrow = false;
    return std::exchange(mText, nullptr);
}

_com_error::_com_error(HRESULT code, IErrorInfo* errorInfo, bool addRef) noexcept : mCode(code), mErrorInfo(errorInfo) {
    if (addRef && mErrorInfo != nullptr) {
        mErrorInfo->AddRef();
    }
}

_com_error::_com_error(const _com_error& other) noexcept : mCode(other.mCode), mErrorInfo(other.ErrorInfo()) {}

_com_error& _com_error::operator=(const _com_error& other) noexcept {
    IErrorInfo* const previous = mErrorInfo;
    mErrorInfo = other.ErrorInfo();  // before the release, which may be the other one's last
    mCode = other.mCode;
    mMessage.clear();
    if (previous != nullptr) {
        previous->Release();
    }
    return *this;
}

_com_error::~_com_error() {
    if (mErrorInfo != nullptr) {
        mErrorInfo->Release();
    }
}

HRESULT _com_error::Error() const noexcept { return mCode; }

IErrorInfo* _com_error::ErrorInfo() const noexcept {
    if (mErrorInfo != nullptr) {
        mErrorInfo->AddRef();
    }
    return mErrorInfo;
}

_bstr_t _com_error::Description() const {
    BSTR description = nullptr;
    if (mErrorInfo != nullptr) {
        mErrorInfo->GetDescription(&description);
    }
    return _bstr_t(description, false);
}

const char* _com_error::ErrorMessage() const {
    if (mMessage.empty()) {
        mMessage = SystemMessage(static_cast<std::uint32_t>(mCode));
    }
    if (mMessage.empty()) {
        mMessage = ComErrorText(static_cast<std::uint32_t>(mCode));
    }
    return mMessage.c_str();
}

WORD _com_error::WCode() const noexcept { return DispatchCodeOf(static_cast<std::uint32_t>(mCode)); }

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size) noexcept {
    if ((flags & GMEM_MOVEABLE) == 0) {
        return nullptr;
    }
    return GlobalBlockAlloc(size, flags & ~GMEM_MOVEABLE);
}

HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags) noexcept {
    return GlobalBlockReAlloc(block, size, flags);
}

void* GlobalLock(HGLOBAL block) noexcept { return GlobalBlockLock(block); }

BOOL GlobalUnlock(HGLOBAL block) noexcept { return GlobalBlockUnlock(block) ? 1 : 0; }

HGLOBAL GlobalFree(HGLOBAL block) noexcept { return GlobalBlockFree(block) ? nullptr : block; }

SIZE_T GlobalSize(HGLOBAL block) noexcept { return GlobalBlockSize(block); }
