#include <MLCore/core/FailureChecks.h>
#include <MLCore/core/FrameworkException.h>
#include <gtest/gtest.h>
#include <support/ErrorInfo.h>

#include <any>
#include <cerrno>
#include <ios>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <tuple>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

using namespace MLCore;

/// What an exception tells: class, message, code, field, whether it comes from COM, and text.
using FACTS = std::tuple<int, int, unsigned int, int, int, std::string>;

FACTS FactsOf(const FrameworkException& failure) {
    const char* const text = failure.GetText();
    return {failure.GetClass(), failure.GetMsg(),   failure.GetCode(),
            failure.GetField(), failure.IsComErr(), text != nullptr ? text : "(null)"};
}
FACTS FactsOfCom(unsigned int code) { return FactsOf(FrameworkException(_com_error(static_cast<HRESULT>(code)))); }

FACTS Plain(int errorClass, int msg) { return {errorClass, msg, 0, 0, 0, "(null)"}; }

/// What the exception that `check` throws tells.
template <class Check>
FACTS ThrownBy(const Check& check) {
    try {
        check();
    } catch (const FrameworkException& failure) {
        return FactsOf(failure);
    }
    return {0, 0, 0, 0, 0, "nothing thrown"};
}

template <class... Standard>
std::vector<int> CodesOf(const Standard&... errors) {
    for (const std::exception* error : std::initializer_list<const std::exception*>{&errors...}) {
        const FrameworkException failure(*error);
        const short code = failure.GetClass();
        const std::string text = error->what() != nullptr ? error->what() : "(null)";
        EXPECT_EQ(FactsOf(failure), FACTS(code, code, 0, 0, 0, text));
    }
    return {FrameworkException(errors).GetClass()...};
}

TEST(FrameworkExceptionTest, FromNumbers) {
    EXPECT_EQ(FactsOf(FrameworkException()), Plain(0, 0));
    EXPECT_EQ(FrameworkException().GetErrorInfo(), nullptr);
    EXPECT_EQ(FactsOf(FrameworkException(-3, 4)), Plain(-3, 4));
    EXPECT_EQ(FactsOf(FrameworkException(1, 2, 0, 0, nullptr)), Plain(1, 2));
    EXPECT_EQ(FactsOf(FrameworkException(1, 2, 0, 0, "")), FACTS(1, 2, 0, 0, 0, ""));
    for (const short kind : std::initializer_list<short>{0, 1, 2, 3, -1}) {
        char text[] = "text";
        const FrameworkException full(1, 2, kind, 0xFFFE, text);
        text[0] = 'n';
        EXPECT_EQ(FactsOf(full), FACTS(1, 2, 0, -2, kind == 1, "text")) << "the unsigned field is seen as a short";
    }
}

TEST(FrameworkExceptionTest, FromSystemCodes) {
    const struct {
        unsigned int code;
        int number;
        bool hasText;
    } kRows[] = {{0, -3000, false},          {5, -3005, false},          {0x80070005, -3005, true},
                 {0x00070005, -3005, false}, {0x80004005, -19389, true},   // -3000 - 0x4005
                 {0x7FFFFFFF, -2999, false}, {0x0000FF00, -2744, false},   // low words -1 and -256
                 {0x00008000, 29768, false}, {0x00007FFF, 29769, false}};  // wrap as 16 bits do
    for (const auto& row : kRows) {
        const FrameworkException failure(row.code);
        const std::string text = std::get<std::string>(FactsOf(failure));
        EXPECT_EQ(FactsOf(failure), FACTS(row.number, row.number, row.code, 0, 0, text)) << row.code;
        EXPECT_EQ(text != "(null)", row.hasText) << row.code;
        EXPECT_NE(text, "");
        EXPECT_EQ(failure.GetText(), failure.GetText()) << "looked up once";
    }
}

TEST(FrameworkExceptionTest, FromStandardExceptions) {
    struct USERRANGE : std::out_of_range {
        using out_of_range::out_of_range;
    };
    struct USERPLAIN : std::exception {
        const char* what() const noexcept override { return nullptr; }
    };
    EXPECT_EQ(CodesOf(std::bad_alloc(), std::bad_array_new_length(), std::bad_exception(), std::bad_cast(),
                      std::bad_any_cast(), std::bad_typeid(), std::ios_base::failure("ios")),
              (std::vector<int>{-100, -100, 120, 121, 121, 123, 124}));
    EXPECT_EQ(CodesOf(std::range_error("range"), std::overflow_error("overflow"), std::underflow_error("underflow"),
                      std::runtime_error("runtime"), std::system_error(std::make_error_code(std::errc::io_error))),
              (std::vector<int>{125, 126, 127, 128, 128}));
    EXPECT_EQ(CodesOf(std::length_error("length"), std::domain_error("domain"), std::out_of_range("\xE9t\xE9"),
                      USERRANGE("user"), std::invalid_argument("argument"), std::logic_error("")),
              (std::vector<int>{129, 130, 131, 131, 132, 133}));
    EXPECT_EQ(CodesOf(std::exception(), std::bad_optional_access(), USERPLAIN()), (std::vector<int>{134, 134, 134}));
}

TEST(FrameworkExceptionTest, FromComErrors) {
    support::ERRORINFO info(L"no acc\u00E8s");
    const FACTS facts(-3005, -3005, 0x80070005, 0, 1, "no acc\xE8s");
    {
        std::optional<FrameworkException> failure(_com_error(E_ACCESSDENIED, &info, true));
        EXPECT_EQ(info.count, 2U) << "one reference of its own";
        EXPECT_EQ(FactsOf(*failure), facts);
        ASSERT_EQ(failure->GetErrorInfo(), &info);
        EXPECT_EQ(info.Release(), 2U) << "the caller's";

        FrameworkException copy(*failure);
        FrameworkException assigned(1, 2);
        assigned = copy;
        EXPECT_EQ(info.count, 4U);
        const FrameworkException moved(std::move(copy));
        EXPECT_EQ(info.count, 4U);
        failure.reset();
        assigned = FrameworkException(3, 4);
        EXPECT_EQ(info.count, 2U);
        EXPECT_EQ(ThrownBy([&moved] { throw moved; }), facts);
    }
    EXPECT_EQ(info.count, 1U);
    EXPECT_EQ(FrameworkException(_com_error(E_ACCESSDENIED)).GetErrorInfo(), nullptr);
    EXPECT_EQ(FactsOfCom(0x80040205), FACTS(-3517, -3517, 0x80040205, 0, 1, "IDispatch error #5"));
    EXPECT_EQ(FactsOfCom(0x8FFF1234), FACTS(-7660, -7660, 0x8FFF1234, 0, 1, "Unknown error 0x8FFF1234"));
}

TEST(FrameworkExceptionTest, CopiesAreDeep) {
    std::optional<FrameworkException> original(std::in_place, short{1}, short{2}, short{2},
                                               static_cast<unsigned short>(9), "text");
    const FrameworkException copy(*original);
    FrameworkException assigned(5, 6, 1, 7, "another, longer text");
    assigned = *original;
    FrameworkException moved(std::move(*original));
    original.reset();
    FrameworkException moveAssigned(0x80070005U);
    moveAssigned = FrameworkException(copy);
    FrameworkException& self = moved;
    moved = self;
    moved = std::move(self);
    const FACTS facts(1, 2, 0, 9, 0, "text");
    EXPECT_EQ(std::tuple(FactsOf(copy), FactsOf(assigned)), std::tuple(facts, facts));
    EXPECT_EQ(std::tuple(FactsOf(moved), FactsOf(moveAssigned)), std::tuple(facts, facts));
}

TEST(FailureChecksTest, ThrowWhatTheyAreToldTo) {
    EXPECT_EQ(ThrownBy([] { Fail(5, 7); }), Plain(5, 7));
    EXPECT_EQ(ThrownBy([] { Fail(0xFFFF, -7); }), Plain(-1, -7));
    EXPECT_EQ(ThrownBy([] { FailOSErr(-151); }), Plain(-151, -151));
    EXPECT_EQ(ThrownBy([] { FailCbErr(2); }), Plain(2, 2));
    EXPECT_EQ(ThrownBy([] { FailCbErr(-1); }), Plain(-1, -1));
    EXPECT_EQ(ThrownBy([] { FailCoherErr(8, "t"); }), FACTS(8, 8, 0, 0, 0, "t"));
    EXPECT_EQ(ThrownBy([] { FailCoherErr(8, nullptr); }), Plain(8, 8));
    EXPECT_EQ(ThrownBy([] { FailCoherFieldErr(8, 9, "t"); }), FACTS(8, 8, 0, 9, 0, "t"));
    EXPECT_EQ(ThrownBy([] { FailFALSE(0); }), Plain(1, 0));
    EXPECT_EQ(ThrownBy([] { FailTRUE(-1); }), Plain(1, 0));
    EXPECT_EQ(ThrownBy([] { FailNull(nullptr); }), Plain(-100, -100));
    EXPECT_EQ(ThrownBy([] { FailNullPtr(nullptr); }), Plain(-100, -100));
    EXPECT_EQ(ThrownBy([] { FailOLEErr(1); }), FACTS(-3001, -3001, 1, 0, 0, "(null)"));
    EXPECT_EQ(ThrownBy([] { FailOLEErr(0x00040005); }), FACTS(-3005, -3005, 0x00040005, 0, 0, "(null)"));
    EXPECT_EQ(ThrownBy([] { FailOLEErr(0x80070005); }), FactsOf(FrameworkException(0x80070005U)));
#if defined(_WIN32)
    SetLastError(5);
#else
    errno = EACCES;
#endif
    EXPECT_EQ(ThrownBy([] { FailLastError(0); }), FACTS(-3005, -3005, 5, 0, 0, "(null)"));
}

TEST(FailureChecksTest, LetPassWhatIsNoFailure) {
    const int object = 0;
    EXPECT_EQ(Fail(0, 7), 0);
    EXPECT_NO_THROW((FailOSErr(0), FailCbErr(0), FailCbErr(1), FailCoherErr(0, "t"), FailCoherFieldErr(0, 9, "t")));
    EXPECT_NO_THROW((FailFALSE(2), FailTRUE(0), FailNull(&object), FailNullPtr(&object)));
    EXPECT_NO_THROW((FailLastError(1), FailOLEErr(0), FailOLEErr(0x80070000)));
}

}  // namespace
