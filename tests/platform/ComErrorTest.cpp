#include <MLCore/platform/ComError.h>
#include <gtest/gtest.h>
#include <support/ErrorInfo.h>

namespace {

using namespace MLCore::platform;
using support::ERRORINFO;

std::string TextOf(unsigned int code) { return ReadComError(_com_error(static_cast<HRESULT>(code))).text; }

TEST(ComErrorTest, DescriptionComesFirstAndAReferenceIsHandedOut) {
    ERRORINFO info(L"caf\u00E9 \u20AC!");
    {
        const _com_error error(E_ACCESSDENIED, &info, true);
        const COMERRORPARTS parts = ReadComError(error);
        EXPECT_EQ(parts.code, 0x80070005U);
        EXPECT_EQ(parts.text, "caf\xE9 \x80!");
        EXPECT_EQ(parts.errorInfo, &info);
        EXPECT_EQ(info.count, 3U);
        ReleaseErrorInfo(parts.errorInfo);
        _com_error copy(error);
        EXPECT_EQ(info.count, 3U);
        copy = _com_error(E_POINTER);
        EXPECT_EQ(info.count, 2U);
        EXPECT_EQ(copy.Error(), E_POINTER);
        copy = error;
        const _com_error& same = copy;
        copy = same;
        EXPECT_EQ(info.count, 3U);
    }
    EXPECT_EQ(info.count, 1U);
    AddRefErrorInfo(nullptr);
    ReleaseErrorInfo(nullptr);
}

TEST(ComErrorTest, EmptyOrMissingDescriptionGivesTheSystemsMessage) {
    for (const wchar_t* const description : {L"", static_cast<const wchar_t*>(nullptr)}) {
        ERRORINFO info(description);
        const COMERRORPARTS parts = ReadComError(_com_error(E_FAIL, &info, true));
        EXPECT_EQ(parts.text, TextOf(0x80004005));
        ReleaseErrorInfo(parts.errorInfo);
        EXPECT_EQ(info.count, 1U);
    }
    EXPECT_NE(TextOf(0x80004005), "");
    EXPECT_EQ(TextOf(0x80070005).find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ(ReadComError(_com_error(E_FAIL)).errorInfo, nullptr);
}

TEST(ComErrorTest, DispatchAndUnknownCodes) {
    EXPECT_EQ(TextOf(0x80040205), "IDispatch error #5");
    EXPECT_EQ(TextOf(0x8004FFFF), "IDispatch error #65023");
    EXPECT_EQ(TextOf(0x8FFF1234), "Unknown error 0x8FFF1234");
    EXPECT_EQ(TextOf(0x80050000), "Unknown error 0x80050000");
    EXPECT_EQ(_com_error(static_cast<HRESULT>(0x80040205)).WCode(), 5);
    EXPECT_EQ(_com_error(E_FAIL).WCode(), 0);
}

}  // namespace
