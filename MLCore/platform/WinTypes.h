#pragma once

/// \file
/// The complete Windows types and functions that appear in the library's interfaces.
///
/// This header is for source files only: no other public header includes it, because on Windows it is `<windows.h>`
/// with all its macros. On Linux it defines the same names with the same meaning, so that an application compiles
/// unchanged. Two widths may surprise: `LONG`, `DWORD`, `ULONG` and `HRESULT` have 32 bits, and a wide character, also
/// in a BSTR, is a 4-byte `wchar_t`.

#include <MLCore/platform/ForwardTypes.h>

#if defined(_WIN32)

#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#endif
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

#include <oleauto.h>

#include <comdef.h>

#else

#include <MLCore/platform/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

// Numbers and handles.

typedef std::int32_t HRESULT;
typedef std::int32_t LONG;
typedef std::uint32_t ULONG;
typedef std::uint32_t DWORD;
typedef std::uint32_t UINT;
typedef std::uint16_t WORD;
typedef std::uint16_t USHORT;
typedef std::uint8_t BYTE;
typedef int BOOL;
typedef std::size_t SIZE_T;
typedef double DATE;
typedef wchar_t OLECHAR;
typedef OLECHAR* BSTR;
typedef void* HGLOBAL;
typedef HINSTANCE HMODULE;

/// Calling conventions have no meaning here; with the names one declaration serves both systems.
#define STDMETHODCALLTYPE

// The common result codes; their values are part of the COM standard.

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
inline constexpr HRESULT E_ABORT = static_cast<HRESULT>(0x80004004U);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80070005U);
inline constexpr HRESULT E_HANDLE = static_cast<HRESULT>(0x80070006U);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005U);
inline constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008U);
inline constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000AU);

/// True when `result` is not a failure: bit 31 is clear.
[[nodiscard]] constexpr bool SUCCEEDED(HRESULT result) noexcept { return result >= 0; }

/// True when `result` is a failure: bit 31 is set.
[[nodiscard]] constexpr bool FAILED(HRESULT result) noexcept { return result < 0; }

// Dates.

struct _SYSTEMTIME {
    WORD wYear;
    WORD wMonth;      ///< 1 to 12
    WORD wDayOfWeek;  ///< 0 for Sunday to 6 for Saturday
    WORD wDay;        ///< 1 to 31
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

/// A SYSTEMTIME with the day of the year, 1 to 366.
typedef struct tagUDATE {
    SYSTEMTIME st;
    USHORT wDayOfYear;
} UDATE;

/// Converts `*udate` to a DATE by the rules of MLCore/platform/OleDate.h; weekday, milliseconds and day of the year are
/// ignored.
///
/// \param flags  must be 0.
/// \return S_OK; E_INVALIDARG, with `*date` unchanged, for a null pointer, other flags or a result out of range.
MLCORE_API HRESULT VarDateFromUdate(UDATE* udate, ULONG flags, DATE* date) noexcept;

/// Converts a DATE to `*udate` by the rules of MLCore/platform/OleDate.h, with weekday and day of the year.
///
/// \param flags  must be 0.
/// \return S_OK; E_INVALIDARG, with `*udate` unchanged, for a null pointer, other flags or a DATE out of range.
MLCORE_API HRESULT VarUdateFromDate(DATE date, ULONG flags, UDATE* udate) noexcept;

// Identifiers.

struct _GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend bool operator==(const _GUID&, const _GUID&) = default;
};
typedef GUID IID;
typedef const IID& REFIID;

// Counted wide strings. All functions accept null, which means an empty string.

/// A new BSTR with a copy of the zero-terminated `text`; null for null or without memory. The caller must free it with
/// SysFreeString.
[[nodiscard]] MLCORE_API BSTR SysAllocString(const OLECHAR* text) noexcept;

/// A new BSTR of `length` characters, copied from `text`, or uninitialised when `text` is null. It always ends with a
/// zero.
[[nodiscard]] MLCORE_API BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept;

/// Frees a BSTR.
MLCORE_API void SysFreeString(BSTR text) noexcept;

/// The number of characters, without the terminating zero, in O(1).
[[nodiscard]] MLCORE_API UINT SysStringLen(BSTR text) noexcept;

/// Owns a BSTR and converts between wide text and narrow text in code page 1252.
///
/// A character that the code page lacks becomes '?' in narrow text. Copies are deep. The narrow text is made at the
/// first use and belongs to the object: concurrent first uses of one object need a lock.
class MLCORE_API _bstr_t {
public:
    _bstr_t() noexcept = default;
    _bstr_t(const char* text);      ///< copies; null gives an empty object
    _bstr_t(const wchar_t* text);   ///< copies; null gives an empty object
    _bstr_t(BSTR text, bool copy);  ///< copies, or becomes the owner of `text`
    _bstr_t(const _bstr_t& other);
    _bstr_t(_bstr_t&& other) noexcept;
    _bstr_t& operator=(_bstr_t other) noexcept;
    ~_bstr_t();

    operator const wchar_t*() const noexcept;            ///< null when empty; valid until the object changes
    operator const char*() const;                        ///< null when empty; valid until the object changes
    [[nodiscard]] unsigned int length() const noexcept;  ///< in wide characters
    [[nodiscard]] bool operator!() const noexcept;       ///< true when the object holds no string
    [[nodiscard]] BSTR Detach() noexcept;                ///< the string, now the caller's, or null; empties the object

private:
    BSTR mText = nullptr;
    mutable std::string mNarrow;
    mutable bool mHasNarrow = false;
};

// COM errors.

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;

protected:
    ~IUnknown() = default;
};

/// A component's description of a failure. Every text returned belongs to the caller, who must free it with
/// SysFreeString.
struct IErrorInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* helpContext) = 0;

protected:
    ~IErrorInfo() = default;
};

/// An HRESULT with optional error information, thrown by value.
class MLCORE_API _com_error {
public:
    /// \param errorInfo  may be null. The object owns one reference: the caller's, or its own when `addRef` is true.
    _com_error(HRESULT code, IErrorInfo* errorInfo = nullptr, bool addRef = false) noexcept;
    _com_error(const _com_error& other) noexcept;
    _com_error& operator=(const _com_error& other) noexcept;
    virtual ~_com_error();

    [[nodiscard]] HRESULT Error() const noexcept;
    [[nodiscard]] IErrorInfo* ErrorInfo() const noexcept;  ///< with a reference for the caller, or null
    [[nodiscard]] _bstr_t Description() const;             ///< the description in the error information, or empty

    /// The system's message for the code, or a text made of the code: see platform::ReadComError. It belongs to the
    /// object and is made at the first use: concurrent first uses of one object need a lock.
    [[nodiscard]] const char* ErrorMessage() const;

    /// n for 0x80040200 + n up to 0x8004FFFF, the codes that dispatch interfaces define for themselves; else 0.
    [[nodiscard]] WORD WCode() const noexcept;

private:
    HRESULT mCode;
    IErrorInfo* mErrorInfo;
    mutable std::string mMessage;
};

// Variants.

typedef std::uint16_t VARTYPE;
typedef std::int16_t VARIANT_BOOL;
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

/// The types of a variant, each with the field that holds its value. Currency, dispatch interfaces, arrays and
/// references are not supported here.
enum VARENUM {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,        ///< iVal
    VT_I4 = 3,        ///< lVal
    VT_R4 = 4,        ///< fltVal
    VT_R8 = 5,        ///< dblVal
    VT_DATE = 7,      ///< date
    VT_BSTR = 8,      ///< bstrVal, owned; null is the empty string
    VT_ERROR = 10,    ///< scode
    VT_BOOL = 11,     ///< boolVal
    VT_UNKNOWN = 13,  ///< punkVal, one reference of it owned; may be null
    VT_I1 = 16,       ///< cVal
    VT_UI1 = 17,      ///< bVal
    VT_UI2 = 18,      ///< uiVal
    VT_UI4 = 19,      ///< ulVal
    VT_I8 = 20,       ///< llVal
    VT_UI8 = 21,      ///< ullVal
    VT_INT = 22,      ///< intVal
    VT_UINT = 23,     ///< uintVal
};

struct tagVARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        long long llVal;
        unsigned long long ullVal;
        LONG lVal;
        ULONG ulVal;
        int intVal;
        UINT uintVal;
        short iVal;
        USHORT uiVal;
        char cVal;
        BYTE bVal;
        float fltVal;
        double dblVal;
        DATE date;
        VARIANT_BOOL boolVal;
        HRESULT scode;
        BSTR bstrVal;
        IUnknown* punkVal;
    };
};
typedef struct tagVARIANT VARIANT;

/// Makes an uninitialised variant empty.
MLCORE_API void VariantInit(VARIANT* variant) noexcept;

/// Frees the value that the variant owns and makes the variant empty.
///
/// \return S_OK; E_INVALIDARG for null; DISP_E_BADVARTYPE, with nothing changed, for an unknown type.
MLCORE_API HRESULT VariantClear(VARIANT* variant) noexcept;

/// Clears `*destination` and copies `*source` into it: a text is copied, an object gets one more reference. Both may be
/// the same variant.
///
/// \return S_OK; E_INVALIDARG for null; DISP_E_BADVARTYPE, when either type is unknown, or E_OUTOFMEMORY, both with
///         nothing changed.
MLCORE_API HRESULT VariantCopy(VARIANT* destination, const VARIANT* source) noexcept;

/// Owns a variant. It has the fields of the structure, and a plain variant may be copied into it.
///
/// Conversions return the value when it has exactly the wanted type; they throw _com_error(DISP_E_TYPEMISMATCH) for any
/// other type. An assignment also sets the type. A `long` that needs more than 32 bits throws
/// _com_error(DISP_E_OVERFLOW). Without memory, std::bad_alloc is thrown.
class MLCORE_API _variant_t : public tagVARIANT {
public:
    _variant_t() noexcept;
    _variant_t(const VARIANT& source);       ///< throws _com_error(DISP_E_BADVARTYPE) for an unknown type
    _variant_t(VARIANT& source, bool copy);  ///< copies, or takes the value over and makes `source` empty
    _variant_t(const _variant_t& other);
    _variant_t(_variant_t&& other) noexcept;  ///< `other` becomes empty

    /// These three set the given type. It may be VT_I2 or VT_BOOL for a short; VT_I4, VT_ERROR or VT_BOOL for a long;
    /// VT_R8 or VT_DATE for a double. Other types throw _com_error(E_INVALIDARG).
    _variant_t(short value, VARTYPE type = VT_I2);
    _variant_t(long value, VARTYPE type = VT_I4);
    _variant_t(double value, VARTYPE type = VT_R8);

    _variant_t(float value) noexcept;           ///< VT_R4
    _variant_t(bool value) noexcept;            ///< VT_BOOL
    _variant_t(char value) noexcept;            ///< VT_I1
    _variant_t(BYTE value) noexcept;            ///< VT_UI1
    _variant_t(unsigned short value) noexcept;  ///< VT_UI2
    _variant_t(unsigned long value);            ///< VT_UI4
    _variant_t(int value) noexcept;             ///< VT_INT
    _variant_t(unsigned int value) noexcept;    ///< VT_UINT
    _variant_t(const char* text);               ///< VT_BSTR, copied; null stays null
    _variant_t(const wchar_t* text);            ///< VT_BSTR, copied; null stays null
    _variant_t(const _bstr_t& text);            ///< VT_BSTR, copied; null stays null

    /// VT_UNKNOWN. The variant owns one reference: its own, or the caller's when `addRef` is false.
    _variant_t(IUnknown* object, bool addRef = true) noexcept;

    _variant_t& operator=(_variant_t other) noexcept;
    ~_variant_t();

    operator short() const;           ///< of a VT_I2
    operator long() const;            ///< of a VT_I4
    operator float() const;           ///< of a VT_R4
    operator double() const;          ///< of a VT_R8
    operator bool() const;            ///< of a VT_BOOL
    operator char() const;            ///< of a VT_I1
    operator BYTE() const;            ///< of a VT_UI1
    operator unsigned short() const;  ///< of a VT_UI2
    operator unsigned long() const;   ///< of a VT_UI4
    operator int() const;             ///< of a VT_INT
    operator unsigned int() const;    ///< of a VT_UINT
    operator _bstr_t() const;         ///< of a VT_BSTR
    operator IUnknown*() const;       ///< of a VT_UNKNOWN, with a reference for the caller

    void Clear();  ///< frees its value and becomes empty; _com_error(DISP_E_BADVARTYPE) for an unknown type

    /// Equal when type and value are equal: texts by their characters, objects by identity. Unknown types are never
    /// equal.
    friend MLCORE_API bool operator==(const VARIANT& left, const VARIANT& right) noexcept;
};

// Movable global memory: see MLCore/platform/GlobalMemory.h for the rules.

inline constexpr UINT GMEM_FIXED = 0x0000;
inline constexpr UINT GMEM_MOVEABLE = 0x0002;
inline constexpr UINT GMEM_ZEROINIT = 0x0040;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

/// A new block of exactly `size` bytes, or null. `flags` must be GMEM_MOVEABLE with or without GMEM_ZEROINIT; the
/// result is null for others.
[[nodiscard]] MLCORE_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T size) noexcept;

/// Resizes a block; returns its handle, or null with the block unchanged. `flags` is 0, GMEM_MOVEABLE (a locked block
/// may move) or GMEM_ZEROINIT (new bytes are 0), or both; the result is null for others.
[[nodiscard]] MLCORE_API HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags) noexcept;

/// Locks a block and returns its first byte, or null. Each lock needs one GlobalUnlock.
[[nodiscard]] MLCORE_API void* GlobalLock(HGLOBAL block) noexcept;

/// Removes one lock; non-zero while the block is still locked, else 0.
MLCORE_API BOOL GlobalUnlock(HGLOBAL block) noexcept;

/// Frees a block, locked or not, and returns null; returns `block` when it is not a handle. Null is allowed.
MLCORE_API HGLOBAL GlobalFree(HGLOBAL block) noexcept;

/// The exact size of a block in bytes; 0 when it is not a handle.
[[nodiscard]] MLCORE_API SIZE_T GlobalSize(HGLOBAL block) noexcept;

#endif
