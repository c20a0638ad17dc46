#include <MLCore/platform/ComError.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

namespace {

using namespace MLCore::platform;

/// Error information on the stack, which counts its references and never frees itself.
class TESTERRORINFO final : public IErrorInfo {
public:
    explicit TESTERRORINFO(const wchar_t* description) : mDescription(description) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++mCount; }
    ULONG STDMETHODCALLTYPE Release() override { return --mCount; }
    HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) override {
        *description = SysAllocString(mDescription);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

    ULONG Count() const { return mCount; }

private:
    const wchar_t* mDescription;
    ULONG mCount = 1;
};

std::string TextOf(unsigned int code) { return ReadComError(_com_error(static_cast<HRESULT>(code))).text; }

TEST(ComErrorTest, DescriptionComesFirstAndAReferenceIsHandedOut) {
    TESTERRORINFO info(L"caf\u00E9 \u20AC5");
    {
        const _com_error error(E_ACCESSDENIED, &info, true);
        EXPECT_EQ(info.Count(), 2U);
        const COMERRORPARTS parts = ReadComError(error);
        EXPECT_EQ(parts.code, 0x80070005U);
        EXPECT_EQ(parts.text,
                  "caf\xE9 \x80"
                  "5");
        EXPECT_EQ(parts.errorInfo, &info);
        EXPECT_EQ(info.Count(), 3U);
        ReleaseErrorInfo(parts.errorInfo);
        EXPECT_EQ(info.Count(), 2U);
    }
    EXPECT_EQ(info.Count(), 1U);
}

TEST(ComErrorTest, EmptyOrMissingDescriptionGivesTheSystemsMessage) {
    TESTERRORINFO empty(L"");
    TESTERRORINFO missing(nullptr);
    for (TESTERRORINFO* info : {&empty, &missing}) {
        const COMERRORPARTS parts = ReadComError(_com_error(E_FAIL, info, true));
        EXPECT_FALSE(parts.text.empty());
        EXPECT_EQ(parts.text, TextOf(0x80004005));
        ReleaseErrorInfo(parts.errorInfo);
        EXPECT_EQ(info->Count(), 1U);
    }
    const std::string text = TextOf(0x80070005);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
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

TEST(ComErrorTest, CopiesAndAssignmentsCount) {
    TESTERRORINFO info(L"x");
    {
        const _com_error owner(E_FAIL, &info, true);
        _com_error copy(owner);
        EXPECT_EQ(info.Count(), 3U);
        copy = _com_error(E_POINTER);
        EXPECT_EQ(info.Count(), 2U);
        EXPECT_EQ(copy.Error(), E_POINTER);
        copy = owner;
        EXPECT_EQ(info.Count(), 3U);
        const _com_error& same = copy;
        copy = same;
        EXPECT_EQ(info.Count(), 3U);
    }
    EXPECT_EQ(info.Count(), 1U);
}

TEST(ComErrorTest, NullErrorInfoIsAllowed) {
    AddRefErrorInfo(nullptr);
    ReleaseErrorInfo(nullptr);
}

}  // namespace
