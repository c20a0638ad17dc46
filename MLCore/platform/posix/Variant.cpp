#include <MLCore/platform/WinTypes.h>

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <new>
#include <utility>

namespace {

// One row for each type, with the comparison of two values of it.
struct KIND {
    VARTYPE type;
    bool (*areEqual)(const VARIANT& left, const VARIANT& right) noexcept;
};

template <auto Field>
bool AreFieldsEqual(const VARIANT& left, const VARIANT& right) noexcept {
    return left.*Field == right.*Field;
}

bool AreAlwaysEqual(const VARIANT&, const VARIANT&) noexcept { return true; }

bool AreTextsEqual(const VARIANT& left, const VARIANT& right) noexcept {
    const UINT length = SysStringLen(left.bstrVal);
    return length == SysStringLen(right.bstrVal) &&
           (length == 0 || std::wmemcmp(left.bstrVal, right.bstrVal, length) == 0);
}

constexpr KIND kKinds[] = {
    {VT_EMPTY, AreAlwaysEqual},
    {VT_NULL, AreAlwaysEqual},
    {VT_I2, AreFieldsEqual<&VARIANT::iVal>},
    {VT_I4, AreFieldsEqual<&VARIANT::lVal>},
    {VT_R4, AreFieldsEqual<&VARIANT::fltVal>},
    {VT_R8, AreFieldsEqual<&VARIANT::dblVal>},
    {VT_DATE, AreFieldsEqual<&VARIANT::date>},
    {VT_BSTR, AreTextsEqual},
    {VT_ERROR, AreFieldsEqual<&VARIANT::scode>},
    {VT_BOOL, AreFieldsEqual<&VARIANT::boolVal>},
    {VT_UNKNOWN, AreFieldsEqual<&VARIANT::punkVal>},
    {VT_I1, AreFieldsEqual<&VARIANT::cVal>},
    {VT_UI1, AreFieldsEqual<&VARIANT::bVal>},
    {VT_UI2, AreFieldsEqual<&VARIANT::uiVal>},
    {VT_UI4, AreFieldsEqual<&VARIANT::ulVal>},
    {VT_I8, AreFieldsEqual<&VARIANT::llVal>},
    {VT_UI8, AreFieldsEqual<&VARIANT::ullVal>},
    {VT_INT, AreFieldsEqual<&VARIANT::intVal>},
    {VT_UINT, AreFieldsEqual<&VARIANT::uintVal>},
};

/// The row of a type, or null.
const KIND* KindOf(const VARIANT& variant) noexcept {
    const KIND* const found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                           [&variant](const KIND& kind) { return kind.type == variant.vt; });
    return found != std::end(kKinds) ? found : nullptr;
}

void Check(HRESULT result) {
    if (result == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
    if (FAILED(result)) {
        throw _com_error(result);
    }
}

/// The value in 32 bits.
template <class NARROW, class WIDE>
NARROW Narrow(WIDE value) {
    Check(std::in_range<NARROW>(value) ? S_OK : DISP_E_OVERFLOW);
    return static_cast<NARROW>(value);
}

template <auto Field>
auto ValueOf(const VARIANT& variant, VARTYPE type) {
    Check(variant.vt == type ? S_OK : DISP_E_TYPEMISMATCH);
    return variant.*Field;
}

template <auto Field, class VALUE>
VARIANT VariantOf(VARTYPE type, VALUE value) noexcept {
    VARIANT variant{};
    variant.vt = type;
    variant.*Field = value;
    return variant;
}

VARIANT VariantOfBool(bool value) noexcept {
    return VariantOf<&VARIANT::boolVal>(VT_BOOL, value ? VARIANT_TRUE : VARIANT_FALSE);
}

VARIANT VariantOfLong(long value, VARTYPE type) {
    switch (type) {
        case VT_I4:
            return VariantOf<&VARIANT::lVal>(type, Narrow<LONG>(value));
        case VT_ERROR:
            return VariantOf<&VARIANT::scode>(type, Narrow<HRESULT>(value));
        case VT_BOOL:
            return VariantOfBool(value != 0);
        default:
            throw _com_error(E_INVALIDARG);
    }
}

VARIANT VariantOfShort(short value, VARTYPE type) {
    switch (type) {
        case VT_I2:
            return VariantOf<&VARIANT::iVal>(type, value);
        case VT_BOOL:
            return VariantOfBool(value != 0);
        default:
            throw _com_error(E_INVALIDARG);
    }
}

VARIANT VariantOfDouble(double value, VARTYPE type) {
    switch (type) {
        case VT_R8:
            return VariantOf<&VARIANT::dblVal>(type, value);
        case VT_DATE:
            return VariantOf<&VARIANT::date>(type, value);
        default:
            throw _com_error(E_INVALIDARG);
    }
}

}  // namespace

void VariantInit(VARIANT* variant) noexcept {
    if (variant != nullptr) {
        *variant = VARIANT{};
    }
}

HRESULT VariantClear(VARIANT* variant) noexcept {
    if (variant == nullptr) {
        return E_INVALIDARG;
    }
    if (KindOf(*variant) == nullptr) {
        return DISP_E_BADVARTYPE;
    }
    const VARIANT previous = std::exchange(*variant, VARIANT{});  // first: a last release may come back here
    if (previous.vt == VT_BSTR) {
        SysFreeString(previous.bstrVal);
    } else if (previous.vt == VT_UNKNOWN && previous.punkVal != nullptr) {
        previous.punkVal->Release();
    }
    return S_OK;
}

HRESULT VariantCopy(VARIANT* destination, const VARIANT* source) noexcept {
    if (destination == nullptr || source == nullptr) {
        return E_INVALIDARG;
    }
    if (KindOf(*destination) == nullptr || KindOf(*source) == nullptr) {
        return DISP_E_BADVARTYPE;
    }
    VARIANT copy = *source;
    if (copy.vt == VT_BSTR && copy.bstrVal != nullptr) {
        copy.bstrVal = SysAllocStringLen(source->bstrVal, SysStringLen(source->bstrVal));
        if (copy.bstrVal == nullptr) {
            return E_OUTOFMEMORY;
        }
    } else if (copy.vt == VT_UNKNOWN && copy.punkVal != nullptr) {
        copy.punkVal->AddRef();
    }
    VARIANT previous = std::exchange(*destination, copy);
    return VariantClear(&previous);
}

_variant_t::_variant_t() noexcept : tagVARIANT{} {}

_variant_t::_variant_t(const VARIANT& source) : tagVARIANT{} { Check(VariantCopy(this, &source)); }

_variant_t::_variant_t(VARIANT& source, bool copy) : tagVARIANT{} {
    if (copy) {
        Check(VariantCopy(this, &source));
    } else {
        Check(KindOf(source) != nullptr ? S_OK : DISP_E_BADVARTYPE);
        static_cast<VARIANT&>(*this) = std::exchange(source, VARIANT{});
    }
}

_variant_t::_variant_t(const _variant_t& other) : _variant_t(static_cast<const VARIANT&>(other)) {}

_variant_t::_variant_t(_variant_t&& other) noexcept : tagVARIANT(std::exchange<VARIANT>(other, VARIANT{})) {}

_variant_t::_variant_t(short value, VARTYPE type) : tagVARIANT(VariantOfShort(value, type)) {}
_variant_t::_variant_t(long value, VARTYPE type) : tagVARIANT(VariantOfLong(value, type)) {}
_variant_t::_variant_t(double value, VARTYPE type) : tagVARIANT(VariantOfDouble(value, type)) {}
_variant_t::_variant_t(float value) noexcept : tagVARIANT(VariantOf<&VARIANT::fltVal>(VT_R4, value)) {}
_variant_t::_variant_t(bool value) noexcept : tagVARIANT(VariantOfBool(value)) {}
_variant_t::_variant_t(char value) noexcept : tagVARIANT(VariantOf<&VARIANT::cVal>(VT_I1, value)) {}
_variant_t::_variant_t(BYTE value) noexcept : tagVARIANT(VariantOf<&VARIANT::bVal>(VT_UI1, value)) {}
_variant_t::_variant_t(unsigned short value) noexcept : tagVARIANT(VariantOf<&VARIANT::uiVal>(VT_UI2, value)) {}
_variant_t::_variant_t(unsigned long value) : tagVARIANT(VariantOf<&VARIANT::ulVal>(VT_UI4, Narrow<ULONG>(value))) {}
_variant_t::_variant_t(int value) noexcept : tagVARIANT(VariantOf<&VARIANT::intVal>(VT_INT, value)) {}
_variant_t::_variant_t(unsigned int value) noexcept : tagVARIANT(VariantOf<&VARIANT::uintVal>(VT_UINT, value)) {}
_variant_t::_variant_t(const char* text) : _variant_t(_bstr_t(text)) {}
_variant_t::_variant_t(const wchar_t* text) : _variant_t(_bstr_t(text)) {}
_variant_t::_variant_t(const _bstr_t& text)
    : tagVARIANT(VariantOf<&VARIANT::bstrVal>(VT_BSTR, _bstr_t(text).Detach())) {}

_variant_t::_variant_t(IUnknown* object, bool addRef) noexcept
    : tagVARIANT(VariantOf<&VARIANT::punkVal>(VT_UNKNOWN, object)) {
    if (addRef && object != nullptr) {
        object->AddRef();
    }
}

_variant_t& _variant_t::operator=(_variant_t other) noexcept {
    std::swap<VARIANT>(*this, other);
    return *this;
}

_variant_t::~_variant_t() { VariantClear(this); }

_variant_t::operator short() const { return ValueOf<&VARIANT::iVal>(*this, VT_I2); }
_variant_t::operator long() const { return ValueOf<&VARIANT::lVal>(*this, VT_I4); }
_variant_t::operator float() const { return ValueOf<&VARIANT::fltVal>(*this, VT_R4); }
_variant_t::operator double() const { return ValueOf<&VARIANT::dblVal>(*this, VT_R8); }
_variant_t::operator bool() const { return ValueOf<&VARIANT::boolVal>(*this, VT_BOOL) != VARIANT_FALSE; }
_variant_t::operator char() const { return ValueOf<&VARIANT::cVal>(*this, VT_I1); }
_variant_t::operator BYTE() const { return ValueOf<&VARIANT::bVal>(*this, VT_UI1); }
_variant_t::operator unsigned short() const { return ValueOf<&VARIANT::uiVal>(*this, VT_UI2); }
_variant_t::operator unsigned long() const { return ValueOf<&VARIANT::ulVal>(*this, VT_UI4); }
_variant_t::operator int() const { return ValueOf<&VARIANT::intVal>(*this, VT_INT); }
_variant_t::operator unsigned int() const { return ValueOf<&VARIANT::uintVal>(*this, VT_UINT); }
_variant_t::operator _bstr_t() const { return _bstr_t(ValueOf<&VARIANT::bstrVal>(*this, VT_BSTR), true); }

_variant_t::operator IUnknown*() const {
    IUnknown* const object = ValueOf<&VARIANT::punkVal>(*this, VT_UNKNOWN);
    if (object != nullptr) {
        object->AddRef();
    }
    return object;
}

void _variant_t::Clear() { Check(VariantClear(this)); }

bool operator==(const VARIANT& left, const VARIANT& right) noexcept {
    const KIND* const kind = KindOf(left);
    return kind != nullptr && left.vt == right.vt && kind->areEqual(left, right);
}
