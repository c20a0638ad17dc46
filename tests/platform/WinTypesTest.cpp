// The forward declarations come first on purpose: the complete types must agree with them.
#include <MLCore/platform/ForwardTypes.h>
//
#include <MLCore/platform/WinTypes.h>
//
#include <MLCore/platform/ForwardTypes.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace {

// Widths are part of the Windows interfaces.
static_assert(sizeof(HRESULT) == 4 && sizeof(LONG) == 4 && sizeof(DWORD) == 4 && sizeof(ULONG) == 4 &&
              sizeof(WORD) == 2);
static_assert(sizeof(SYSTEMTIME) == 16 && sizeof(GUID) == 16 && sizeof(UDATE) == 18);
static_assert(std::is_same_v<SYSTEMTIME, _SYSTEMTIME> && std::is_same_v<HINSTANCE, HINSTANCE__*>);

TEST(WinTypesTest, BstrIsCounted) {
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    SysFreeString(nullptr);
    for (const BSTR text : {SysAllocString(L"abc"), SysAllocStringLen(L"a\0c", 3)}) {
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(SysStringLen(text), 3U);
        EXPECT_EQ(std::wstring(text + 2), L"c");
        SysFreeString(text);
    }
}

const wchar_t* Wide(const _bstr_t& text) { return text; }

TEST(WinTypesTest, BstrObjectOwnsItsText) {
    const _bstr_t none(static_cast<const wchar_t*>(nullptr));
    EXPECT_FALSE(none);
    EXPECT_EQ(none.length(), 0);
    EXPECT_EQ(Wide(none), nullptr);
    _bstr_t first(L"one");
    _bstr_t second(first);
    first = _bstr_t(SysAllocString(L"two"), false);
    EXPECT_STREQ(Wide(second), L"one");
    EXPECT_STREQ(Wide(_bstr_t(std::move(second))), L"one");
    const _bstr_t& same = first;
    first = same;
    EXPECT_STREQ(Wide(first), L"two");
}

// The Windows compiler used here ships the narrow conversions declared only.
#if !defined(__MINGW32__)
TEST(WinTypesTest, BstrObjectConvertsBothWays) {
    const _bstr_t wide(L"\u00C9t\u00E9 \u0153 \u2019\u0178");
    EXPECT_STREQ(static_cast<const char*>(wide), "\xC9t\xE9 \x9C \x92\x9F");
    EXPECT_EQ(wide.length(), 8U);

    std::string allBytes;
    for (int i = 1; i < 256; ++i) {
        allBytes += static_cast<char>(i);
    }
    const _bstr_t narrow(allBytes.c_str());
    EXPECT_EQ(narrow.length(), 255U);
    const _bstr_t back(static_cast<const wchar_t*>(narrow));
    EXPECT_EQ(static_cast<const char*>(back), allBytes);
    EXPECT_STREQ(static_cast<const char*>(_bstr_t(L"\u4E2D")), "?");
    _bstr_t text("one");
    EXPECT_STREQ(static_cast<const char*>(text), "one");
    text = "two";
    EXPECT_STREQ(static_cast<const char*>(text), "two");
    EXPECT_EQ(static_cast<const char*>(_bstr_t(static_cast<const char*>(nullptr))), nullptr);
}
#endif

TEST(WinTypesTest, UdateGetsWeekdayAndDayOfYear) {
    // 5 March 2024 was a Tuesday, the 65th day of a leap year, and DATE 45356.
    UDATE udate{};
    ASSERT_EQ(VarUdateFromDate(45356.75, 0, &udate), S_OK);
    EXPECT_EQ(std::tuple(udate.st.wYear, udate.st.wMonth, udate.st.wDay, udate.st.wHour), std::tuple(2024, 3, 5, 18));
    EXPECT_EQ(udate.st.wDayOfWeek, 2);
    EXPECT_EQ(udate.wDayOfYear, 65);
    DATE date = 0;
    ASSERT_EQ(VarDateFromUdate(&udate, 0, &date), S_OK);
    EXPECT_DOUBLE_EQ(date, 45356.75);
    EXPECT_TRUE(FAILED(VarUdateFromDate(1e10, 0, &udate)));
}

TEST(WinTypesTest, GlobalMemoryByItsWindowsNames) {
    HGLOBAL block = GlobalAlloc(GHND, 10);
    unsigned char* const data = static_cast<unsigned char*>(GlobalLock(block));
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data[9], 0);
    data[9] = 7;
    EXPECT_EQ(GlobalUnlock(block), 0);
    block = GlobalReAlloc(block, 20, GMEM_MOVEABLE | GMEM_ZEROINIT);
    EXPECT_EQ(GlobalSize(block), 20U);
    const unsigned char* const moved = static_cast<unsigned char*>(GlobalLock(block));
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(moved[9], 7);
    EXPECT_EQ(moved[10], 0);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

}  // namespace
