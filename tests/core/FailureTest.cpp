#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/FrameworkException.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>

#include <any>
#include <cerrno>
#include <ios>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <typeinfo>
#include <utility>

namespace {

using namespace MLCore;

std::string TextOf(const FrameworkException& failure) {
    const char* const text = failure.GetText();
    return text != nullptr ? text : "(null)";
}

/// Error information on the stack, which counts its references.
class TESTERRORINFO final : public IErrorInfo {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
    ULONG STDMETHODCALLTYPE Release() override { return --count; }
    HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) override {
        *description = SysAllocString(L"no acc\u00E8s");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

    ULONG count = 1;
};

TEST(FrameworkExceptionTest, FromNumbers) {
    const FrameworkException none;
    EXPECT_EQ(none.GetClass(), 0);
    EXPECT_EQ(none.GetMsg(), 0);
    EXPECT_EQ(none.GetField(), 0);
    EXPECT_EQ(none.GetCode(), 0U);
    EXPECT_EQ(none.IsComErr(), 0);
    EXPECT_EQ(none.GetErrorInfo(), nullptr);
    EXPECT_EQ(none.GetText(), nullptr);
    const FrameworkException plain(-3, 4);
    EXPECT_EQ(plain.GetClass(), -3);
    EXPECT_EQ(plain.GetMsg(), 4);
    EXPECT_EQ(plain.GetText(), nullptr);

    char text[] = "text";
    for (const short kind : std::initializer_list<short>{0, 1, 2, 3, -1}) {
        const FrameworkException full(1, 2, kind, 0xFFFE, text);
        EXPECT_EQ(full.GetMsg(), 2);
        EXPECT_EQ(full.IsComErr(), kind == 1);
        EXPECT_EQ(full.GetField(), -2) << "the unsigned number, seen as a short";
        EXPECT_STREQ(full.GetText(), "text");
        EXPECT_NE(full.GetText(), text);
    }
    EXPECT_EQ(TextOf(FrameworkException(1, 2, 0, 0, nullptr)), "(null)");
    EXPECT_EQ(TextOf(FrameworkException(1, 2, 0, 0, "")), "");
}

TEST(FrameworkExceptionTest, FromSystemCodes) {
    const struct {
        unsigned int code;
        short number;
        bool hasText;
    } kRows[] = {{0, -3000, false},          {5, -3005, false},          {0x80070005, -3005, true},
                 {0x00070005, -3005, false}, {0x80004005, -19389, true},  // -3000 - 0x4005
                 {0x80070000, -3000, false},                              // nothing to look up is known for it
                 {0x7FFFFFFF, -2999, false},                              // low word -1
                 {0x0000FF00, -2744, false},                              // low word -256
                 {0x00008000, 29768, false},                              // low word -32768
                 {0x00007FFF, 29769, false}};                             // wraps as 16 bits do
    for (const auto& row : kRows) {
        const FrameworkException failure(row.code);
        EXPECT_EQ(failure.GetClass(), row.number) << row.code;
        EXPECT_EQ(failure.GetMsg(), row.number) << row.code;
        EXPECT_EQ(failure.GetCode(), row.code);
        EXPECT_EQ(failure.IsComErr(), 0);
        if (row.code != 0x80070000) {
            EXPECT_EQ(failure.GetText() != nullptr, row.hasText) << row.code;
        }
        EXPECT_EQ(failure.GetText(), failure.GetText()) << "looked up once";
    }
    EXPECT_NE(TextOf(FrameworkException(0x80070005U)), "");
}

TEST(FrameworkExceptionTest, FromStandardExceptions) {
    struct USERRUNTIME : std::runtime_error {
        using runtime_error::runtime_error;
    };
    struct USERRANGE : std::out_of_range {
        using out_of_range::out_of_range;
    };
    struct USERPLAIN : std::exception {
        const char* what() const noexcept override { return nullptr; }
    };
    const auto codeOf = [](const std::exception& error) {
        const FrameworkException failure(error);
        EXPECT_EQ(failure.GetClass(), failure.GetMsg());
        EXPECT_EQ(failure.GetCode(), 0U);
        EXPECT_EQ(failure.IsComErr(), 0);
        EXPECT_EQ(TextOf(failure), error.what() != nullptr ? error.what() : "(null)");
        return failure.GetClass();
    };
    EXPECT_EQ(codeOf(std::bad_alloc()), -100);
    EXPECT_EQ(codeOf(std::bad_array_new_length()), -100);
    EXPECT_EQ(codeOf(std::bad_exception()), 120);
    EXPECT_EQ(codeOf(std::bad_cast()), 121);
    EXPECT_EQ(codeOf(std::bad_any_cast()), 121);
    EXPECT_EQ(codeOf(std::bad_typeid()), 123);
    EXPECT_EQ(codeOf(std::ios_base::failure("ios")), 124);
    EXPECT_EQ(codeOf(std::range_error("range")), 125);
    EXPECT_EQ(codeOf(std::overflow_error("overflow")), 126);
    EXPECT_EQ(codeOf(std::underflow_error("underflow")), 127);
    EXPECT_EQ(codeOf(std::runtime_error("runtime")), 128);
    EXPECT_EQ(codeOf(USERRUNTIME("user")), 128);
    EXPECT_EQ(codeOf(std::system_error(std::make_error_code(std::errc::io_error))), 128);
    EXPECT_EQ(codeOf(std::length_error("length")), 129);
    EXPECT_EQ(codeOf(std::domain_error("domain")), 130);
    EXPECT_EQ(codeOf(std::out_of_range("\xE9t\xE9")), 131);
    EXPECT_EQ(codeOf(USERRANGE("user")), 131);
    EXPECT_EQ(codeOf(std::invalid_argument("argument")), 132);
    EXPECT_EQ(codeOf(std::logic_error("")), 133);
    EXPECT_EQ(codeOf(std::exception()), 134);
    EXPECT_EQ(codeOf(std::bad_optional_access()), 134);
    EXPECT_EQ(codeOf(USERPLAIN()), 134);
}

TEST(FrameworkExceptionTest, FromComErrors) {
    TESTERRORINFO info;
    {
        std::optional<FrameworkException> failure(_com_error(E_ACCESSDENIED, &info, true));
        EXPECT_EQ(info.count, 2U) << "one reference of its own";
        EXPECT_EQ(failure->GetClass(), -3005);
        EXPECT_EQ(failure->GetMsg(), -3005);
        EXPECT_EQ(failure->GetCode(), 0x80070005U);
        EXPECT_EQ(failure->IsComErr(), 1);
        EXPECT_STREQ(failure->GetText(), "no acc\xE8s");
        ASSERT_EQ(failure->GetErrorInfo(), &info);
        EXPECT_EQ(info.count, 3U) << "the caller's";
        info.Release();

        FrameworkException copy(*failure);
        FrameworkException assigned(1, 2);
        assigned = copy;
        EXPECT_EQ(info.count, 4U);
        FrameworkException& self = assigned;
        assigned = self;
        EXPECT_EQ(info.count, 4U);
        const FrameworkException moved(std::move(copy));
        EXPECT_EQ(info.count, 4U);
        failure.reset();
        EXPECT_EQ(info.count, 3U);
        EXPECT_EQ(moved.IsComErr(), 1);
        assigned = FrameworkException(3, 4);
        EXPECT_EQ(info.count, 2U);
        try {
            throw moved;
        } catch (const FrameworkException& caught) {
            EXPECT_EQ(info.count, 3U);
            EXPECT_STREQ(caught.GetText(), "no acc\xE8s");
        }
    }
    EXPECT_EQ(info.count, 1U);

    const FrameworkException system{_com_error(E_ACCESSDENIED)};
    EXPECT_EQ(system.GetErrorInfo(), nullptr);
    EXPECT_NE(TextOf(system), "");
    EXPECT_NE(TextOf(system), "(null)");
    EXPECT_EQ(TextOf(FrameworkException(_com_error(static_cast<HRESULT>(0x80040205)))), "IDispatch error #5");
    EXPECT_EQ(TextOf(FrameworkException(_com_error(static_cast<HRESULT>(0x8FFF1234)))), "Unknown error 0x8FFF1234");
}

TEST(FrameworkExceptionTest, CopiesAreDeep) {
    std::optional<FrameworkException> original(std::in_place, short{1}, short{2}, short{2},
                                               static_cast<unsigned short>(9), "text");
    const FrameworkException copy(*original);
    FrameworkException assigned(5, 6, 1, 7, "another, longer text");
    assigned = *original;
    EXPECT_NE(copy.GetText(), original->GetText());
    FrameworkException moved(std::move(*original));
    original.reset();
    FrameworkException moveAssigned(0x80070005U);
    moveAssigned = FrameworkException(copy);
    FrameworkException& self = moved;
    moved = self;
    moved = std::move(self);
    for (const FrameworkException* failure :
         {&copy, &std::as_const(assigned), &std::as_const(moved), &std::as_const(moveAssigned)}) {
        EXPECT_EQ(failure->GetClass(), 1);
        EXPECT_EQ(failure->GetMsg(), 2);
        EXPECT_EQ(failure->GetField(), 9);
        EXPECT_EQ(failure->GetCode(), 0U);
        EXPECT_EQ(failure->IsComErr(), 0);
        EXPECT_STREQ(failure->GetText(), "text");
    }
}

TEST(FailureChecksTest, ThrowWhatTheyAreToldTo) {
    int object = 0;
    const char* const null = "(null)";
    const struct {
        const char* name;
        void (*call)(int*);
        bool throws;
        short errorClass;
        short msg;
        unsigned int code;
        short field;
        const char* text;
    } kRows[] = {
        {"Fail 0", [](int*) { EXPECT_EQ(Fail(0, 7), 0); }, false, 0, 0, 0, 0, null},
        {"Fail", [](int*) { Fail(5, 7); }, true, 5, 7, 0, 0, null},
        {"Fail high", [](int*) { Fail(0xFFFF, -7); }, true, -1, -7, 0, 0, null},
        {"FailOSErr 0", [](int*) { FailOSErr(0); }, false, 0, 0, 0, 0, null},
        {"FailOSErr", [](int*) { FailOSErr(-151); }, true, -151, -151, 0, 0, null},
        {"FailCbErr 0", [](int*) { FailCbErr(0); }, false, 0, 0, 0, 0, null},
        {"FailCbErr 1", [](int*) { FailCbErr(1); }, false, 0, 0, 0, 0, null},
        {"FailCbErr 2", [](int*) { FailCbErr(2); }, true, 2, 2, 0, 0, null},
        {"FailCbErr -1", [](int*) { FailCbErr(-1); }, true, -1, -1, 0, 0, null},
        {"FailCoherErr 0", [](int*) { FailCoherErr(0, "t"); }, false, 0, 0, 0, 0, null},
        {"FailCoherErr", [](int*) { FailCoherErr(8, "t"); }, true, 8, 8, 0, 0, "t"},
        {"FailCoherErr null", [](int*) { FailCoherErr(8, nullptr); }, true, 8, 8, 0, 0, null},
        {"FailCoherFieldErr 0", [](int*) { FailCoherFieldErr(0, 9, "t"); }, false, 0, 0, 0, 0, null},
        {"FailCoherFieldErr", [](int*) { FailCoherFieldErr(8, 9, "t"); }, true, 8, 8, 0, 9, "t"},
        {"FailFALSE", [](int*) { FailFALSE(0); }, true, 1, 0, 0, 0, null},
        {"FailFALSE 2", [](int*) { FailFALSE(2); }, false, 0, 0, 0, 0, null},
        {"FailTRUE", [](int*) { FailTRUE(-1); }, true, 1, 0, 0, 0, null},
        {"FailTRUE 0", [](int*) { FailTRUE(0); }, false, 0, 0, 0, 0, null},
        {"FailNull", [](int*) { FailNull(nullptr); }, true, -100, -100, 0, 0, null},
        {"FailNullPtr", [](int*) { FailNullPtr(nullptr); }, true, -100, -100, 0, 0, null},
        {"FailNull object", [](int* known) { FailNull(known), FailNullPtr(known); }, false, 0, 0, 0, 0, null},
        {"FailLastError 1", [](int*) { FailLastError(1); }, false, 0, 0, 0, 0, null},
        {"FailOLEErr 0", [](int*) { FailOLEErr(0); }, false, 0, 0, 0, 0, null},
        {"FailOLEErr severe", [](int*) { FailOLEErr(0x80070000), FailOLEErr(0xFFFF0000); }, false, 0, 0, 0, 0, null},
        {"FailOLEErr 1", [](int*) { FailOLEErr(1); }, true, -3001, -3001, 1, 0, null},
        {"FailOLEErr", [](int*) { FailOLEErr(0x00040005); }, true, -3005, -3005, 0x00040005, 0, null},
    };
    for (const auto& row : kRows) {
        bool thrown = false;
        try {
            row.call(&object);
        } catch (const FrameworkException& failure) {
            thrown = true;
            EXPECT_EQ(failure.GetClass(), row.errorClass) << row.name;
            EXPECT_EQ(failure.GetMsg(), row.msg) << row.name;
            EXPECT_EQ(failure.GetCode(), row.code) << row.name;
            EXPECT_EQ(failure.GetField(), row.field) << row.name;
            EXPECT_EQ(failure.IsComErr(), 0) << row.name;
            EXPECT_EQ(TextOf(failure), row.text) << row.name;
        }
        EXPECT_EQ(thrown, row.throws) << row.name;
    }
}

TEST(FailureChecksTest, TheLastErrorMeansTheSameOnEverySystem) {
    const struct {
        int errorNumber;
        unsigned int code;
    } kRows[] = {{ENOENT, 2}, {EACCES, 5}, {EBADF, 6}, {ENOMEM, 8}, {EEXIST, 80}, {EINVAL, 87}, {ENOSPC, 112}};
    for (const auto& row : kRows) {
        try {
#if defined(_WIN32)
            SetLastError(row.code);
#else
            errno = row.errorNumber;
#endif
            FailLastError(0);
            ADD_FAILURE() << row.code;
        } catch (const FrameworkException& failure) {
            EXPECT_EQ(failure.GetCode(), row.code);
            EXPECT_EQ(failure.GetClass(), -3000 - static_cast<int>(row.code));
            EXPECT_EQ(failure.GetText(), nullptr) << "plain codes are not looked up";
        }
    }
    try {
        FailOLEErr(0x80070005);
        ADD_FAILURE();
    } catch (const FrameworkException& failure) {
        EXPECT_EQ(failure.GetCode(), 0x80070005U);
        EXPECT_EQ(failure.GetMsg(), -3005);
        EXPECT_NE(TextOf(failure), "(null)");
    }
}

}  // namespace
