#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

namespace {

static_assert(sizeof(_variant_t) == sizeof(VARIANT));

// Counts the references to itself; it lives on the stack.
class COUNTED : public IUnknown {
public:
    virtual ~COUNTED() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
    ULONG STDMETHODCALLTYPE Release() override { return --count; }

    ULONG count = 1;
};

const VARIANT& Plain(const _variant_t& variant) { return variant; }

// A value makes a variant of its type, comes out of it again, and out of its copies.
template <class VALUE>
void ExpectIsKept(VALUE value, VARTYPE type) {
    const _variant_t variant(value);
    _variant_t assigned(L"other");
    EXPECT_FALSE(assigned == Plain(variant)) << type;
    assigned = variant;
    const _variant_t& same = assigned;
    assigned = same;
    EXPECT_EQ(variant.vt, type) << type;
    EXPECT_EQ(assigned, Plain(variant)) << type;
    EXPECT_EQ(static_cast<VALUE>(assigned), value) << type;
    assigned.Clear();
    EXPECT_EQ(assigned.vt, VT_EMPTY);
}

TEST(VariantTest, EachArgumentMakesItsTypeAndComesOutAgain) {
    ExpectIsKept<short>(-2, VT_I2);
    ExpectIsKept(-2L, VT_I4);
    ExpectIsKept(2.5F, VT_R4);
    ExpectIsKept(2.5, VT_R8);
    ExpectIsKept(true, VT_BOOL);
    ExpectIsKept(false, VT_BOOL);
    ExpectIsKept('a', VT_I1);
    ExpectIsKept<BYTE>(200, VT_UI1);
    ExpectIsKept<unsigned short>(65535, VT_UI2);
    ExpectIsKept(4294967295UL, VT_UI4);
    ExpectIsKept(INT_MIN, VT_INT);
    ExpectIsKept(UINT_MAX, VT_UINT);
    EXPECT_EQ(_variant_t(true).boolVal, VARIANT_TRUE);
    EXPECT_EQ(_variant_t(7L, VT_BOOL).boolVal, VARIANT_TRUE);
    EXPECT_EQ(_variant_t(short{0}, VT_BOOL).boolVal, VARIANT_FALSE);
    EXPECT_EQ(_variant_t(-2L, VT_ERROR).vt, VT_ERROR);
    EXPECT_EQ(_variant_t(-2L, VT_ERROR).scode, -2);
    EXPECT_EQ(_variant_t(2.5, VT_DATE).vt, VT_DATE);
    EXPECT_EQ(_variant_t(2.5, VT_DATE).date, 2.5);
    EXPECT_FALSE(_variant_t(2.5) == Plain(_variant_t(2.5, VT_DATE)));
    EXPECT_EQ(_variant_t(), Plain(_variant_t()));
}

TEST(VariantTest, TextsAreCopied) {
    const BSTR text = SysAllocStringLen(L"a\0c", 3);
    _variant_t variant(_bstr_t(text, false));
    const _variant_t copy(variant);
    EXPECT_NE(copy.bstrVal, variant.bstrVal);
    variant.bstrVal[2] = L'd';
    EXPECT_EQ(std::wstring(copy.bstrVal, SysStringLen(copy.bstrVal)), std::wstring(L"a\0c", 3));
    EXPECT_FALSE(copy == Plain(variant));
    EXPECT_FALSE(copy == Plain(_variant_t(L"a")));
    const _variant_t none(static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(none.vt, VT_BSTR);
    EXPECT_EQ(SysStringLen(_variant_t(none).bstrVal), 0);
    variant = L"new";
    const _bstr_t taken(variant);
    EXPECT_STREQ(static_cast<const wchar_t*>(taken), L"new");
}

TEST(VariantTest, ObjectsAreCounted) {
    COUNTED object;
    {
        const _variant_t variant(&object);
        _variant_t other = 5;
        other = variant;
        EXPECT_EQ(object.count, 3U);
        other = 5;
        EXPECT_EQ(object.count, 2U);
        const _variant_t copy(Plain(variant));
        EXPECT_EQ(object.count, 3);
        EXPECT_EQ(copy, Plain(variant));
        IUnknown* const taken = variant;
        EXPECT_EQ(taken, &object);
        EXPECT_EQ(object.count, 4);
        const _variant_t owner(taken, false);
        EXPECT_EQ(object.count, 4U);
    }
    EXPECT_EQ(object.count, 1U);
}

TEST(VariantTest, APlainVariantIsTakenOver) {
    VARIANT plain;
    VariantInit(&plain);
    plain.vt = VT_BSTR;
    plain.bstrVal = SysAllocString(L"text");
    const BSTR text = plain.bstrVal;
    _variant_t owner(plain, false);
    EXPECT_EQ(plain.vt, VT_EMPTY);
    EXPECT_EQ(owner.bstrVal, text);
    EXPECT_EQ(VariantCopy(&plain, &owner), S_OK);
    EXPECT_EQ(VariantCopy(&plain, &plain), S_OK);
    EXPECT_NE(plain.bstrVal, text);
    EXPECT_STREQ(plain.bstrVal, L"text");
    EXPECT_EQ(VariantClear(&plain), S_OK);
    EXPECT_EQ(plain.vt, VT_EMPTY);
}

template <class ACTION>
HRESULT FailureOf(const ACTION& action) {
    try {
        action();
        return S_OK;
    } catch (const _com_error& error) {
        return error.Error();
    }
}

TEST(VariantTest, FailuresAreTold) {
    EXPECT_EQ(FailureOf([] { _variant_t(short{1}, VT_R8); }), E_INVALIDARG);
    EXPECT_EQ(FailureOf([] { _variant_t(1L, VT_I2); }), E_INVALIDARG);
    EXPECT_EQ(FailureOf([] { _variant_t(1.0, VT_I2); }), E_INVALIDARG);
    VARIANT unknown{};
    unknown.vt = 4000;
    EXPECT_EQ(VariantClear(&unknown), DISP_E_BADVARTYPE);
    EXPECT_EQ(FailureOf([&] { const _variant_t copy(unknown); }), DISP_E_BADVARTYPE);
}

// The Windows class converts where it can, cuts a long nowhere, and copies only.
#if !defined(_WIN32)
TEST(VariantTest, OnlyTheExactTypeComesOut) {
    const _variant_t number(2.5);
    EXPECT_EQ(FailureOf([&] { (void)static_cast<float>(number); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf([&] { (void)static_cast<IUnknown*>(number); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf([] { (void)static_cast<int>(_variant_t(5L)); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf([] { _variant_t(2147483648L); }), DISP_E_OVERFLOW);
    EXPECT_EQ(FailureOf([] { _variant_t(4294967296UL); }), DISP_E_OVERFLOW);
    EXPECT_EQ(static_cast<long>(_variant_t(-2147483648L)), INT_MIN);
    EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
    EXPECT_EQ(VariantCopy(nullptr, &number), E_INVALIDARG);
    _variant_t text("\xC9t\xE9");
    const BSTR characters = text.bstrVal;
    EXPECT_STREQ(characters, L"\u00C9t\u00E9");
    const _variant_t moved(std::move(text));
    EXPECT_EQ(moved.bstrVal, characters);
}
#endif

}  // namespace
