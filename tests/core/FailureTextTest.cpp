#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/CKEYNAMES.h>
#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/FailureChecks.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <cerrno>
#include <fstream>
#include <limits>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace failuretexttest {

using namespace MLCore;

/// Its keys can be read; only "amount" can be set.
class CBILL : public COBJECT, public CKEYNAMES {
    MLCORE_CLASS(CBILL, COBJECT, CKEYNAMES)
public:
    CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override {
        return key == "customer" ? this : key == "nothing" ? nullptr : COBJECT::GetKeyValue(key);
    }
    void SetKeyValue(const std::string& key, COBJECT* value) override {
        if (key != "amount") {
            COBJECT::SetKeyValue(key, value);
        }
    }
    std::vector<std::string> GetKeyNames() const override {
        return {"amount", "customer", "nothing", "id", std::string(100, 'n')};
    }
};

/// Fails when its keys are to be listed.
class CUNLISTED : public COBJECT, public CKEYNAMES {
    MLCORE_CLASS(CUNLISTED, COBJECT, CKEYNAMES)
public:
    std::vector<std::string> GetKeyNames() const override { FailWith(kErrStreamEnd, "no list"); }
};

/// Lists no keys.
class CSILENT : public COBJECT {
    MLCORE_CLASS(CSILENT, COBJECT)
};

/// Bills.
class CBILLS : public COBJECT, public CINDEXEDACCESS {
    MLCORE_CLASS(CBILLS, COBJECT, CINDEXEDACCESS)
public:
    CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string&) override { return this; }
    long GetCount() const override { return 2; }
    CSHAREOBJECTPTR<COBJECT> GetObjectAt(long) const override { return AdoptObject<COBJECT>(new CBILL); }
    void SetObjectAt(long, COBJECT*) override {}
};

/// Throws what is not a plain failure of a key.
class COWN : public COBJECT {
    MLCORE_CLASS(COWN, COBJECT)
public:
    struct EXCEPTION : FrameworkException {
        EXCEPTION() : FrameworkException(kErrUnknownKey, kErrUnknownKey, Ordinary, 0, "its own") {}
    };
    CSHAREOBJECTPTR<COBJECT> GetKeyValue(const std::string& key) override {
        if (key == "own") {
            throw EXCEPTION();
        }
        key == "none" ? FailOSErr(kErrUnknownKey) : FailWith(kErrValueType, "another code");
        return {};
    }
};

MLCORE_REGISTER_CLASS(CBILL)
MLCORE_REGISTER_CLASS(CUNLISTED)
MLCORE_REGISTER_CLASS(CSILENT)
MLCORE_REGISTER_CLASS(CBILLS)
MLCORE_REGISTER_CLASS(COWN)

}  // namespace failuretexttest

namespace {

using namespace failuretexttest;
using support::FailureOf;

/// The text of FailWith() with these parts.
template <class... Parts>
std::string TextOf(const Parts&... parts) {
    const support::FAILURE failure = FailureOf([&] { return FailWith(kErrOverflow, parts...), 0; });
    EXPECT_EQ(failure, kErrOverflow);
    return failure.text;
}

template <class Action>
std::string TextOfKeyFailure(const Action& action) {
    const support::FAILURE failure = FailureOf(action);
    EXPECT_EQ(failure, kErrUnknownKey);
    return failure.text;
}
std::string ReadText(COBJECT& object, const std::string& path) {
    return TextOfKeyFailure([&] { return object.GetKeyPathValue(path); });
}
std::string WriteText(COBJECT& object, const std::string& path) {
    return TextOfKeyFailure([&] { return object.SetKeyPathValue(path, nullptr), 0; });
}

std::string Shown(const FrameworkException& failure) {
    std::ostringstream out;
    out << failure;
    return out.str();
}

TEST(FailureTextTest, PartsAreTextsAndNumbers) {
    const char* const none = nullptr;
    EXPECT_EQ(TextOf("of ", std::string("texts"), std::string_view(", no blanks"), none, ""), "of texts, no blanks");
    EXPECT_EQ(TextOf(0, " ", -1, " ", short{7}, " ", 8L, " ", 9UL), "0 -1 7 8 9");
    EXPECT_EQ(TextOf(std::numeric_limits<long long>::min(), " ", std::numeric_limits<unsigned long long>::max()),
              "-9223372036854775808 18446744073709551615");
    EXPECT_EQ(TextOf(0.1, " ", 1.5F, " ", 1e300, " ", -0.0, " ", std::numeric_limits<double>::infinity()),
              "0.1 1.5 1e+300 -0 inf");
    EXPECT_EQ(TextOf(-std::numeric_limits<double>::denorm_min()), "-5e-324");
    EXPECT_EQ(TextOf(), "");
}

TEST(FailureTextTest, QuotedTextsAreCutAndEscaped) {
    EXPECT_EQ(TextOf(Quoted("")), "''");
    EXPECT_EQ(TextOf(Quoted("\xE9t\xE9")), "'\xE9t\xE9'");
    EXPECT_EQ(TextOf(Quoted({"\0\n\x1F \x7F\x80", 6})), "'\\x00\\x0A\\x1F \\x7F\x80'");
    EXPECT_EQ(TextOf(Quoted(std::string(60, 'x'))), "'" + std::string(60, 'x') + "'");
    EXPECT_EQ(TextOf(Quoted(std::string(61, 'x'))), "'" + std::string(60, 'x') + "...'");
    EXPECT_EQ(TextOf(QuotedPath(std::string(60, 'x'))), "'" + std::string(60, 'x') + "'");
    EXPECT_EQ(TextOf(QuotedPath("y/" + std::string(58, 'x') + ".c")), "'..." + std::string(58, 'x') + ".c'");
}

TEST(FailureTextTest, LongTextsAreCut) {
    const std::string most(300, 'x');
    const std::string cut = std::string(297, 'x') + "...";
    EXPECT_EQ(TextOf(most), most);
    EXPECT_EQ(TextOf(most, ""), most);
    EXPECT_EQ(TextOf(most, "y"), cut);
    EXPECT_EQ(TextOf(most, 1, Quoted("y"), 2), cut);
    EXPECT_EQ(TextOf(most + most), cut);
    EXPECT_EQ(TextOf(std::string(299, 'x'), 12), cut);
    EXPECT_EQ(TextOf(std::string(299, 'x'), 1), std::string(299, 'x') + "1");
}

TEST(FailureTextTest, RequireFailsOrPasses) {
    EXPECT_EQ(FailureOf([] { return Require(true, kErrNull, "never seen"), 0; }), 0);
    EXPECT_EQ(FailureOf([] { return Require(false, kErrNull, "the bill of ", 3, " is null"), 0; }),
              (support::FAILURE{kErrNull, kErrNull, 0, "the bill of 3 is null"}));
}

TEST(FailureTextTest, TheSystemsReasonStandsAtTheEnd) {
    const auto failure = [](unsigned int code, const auto&... parts) {
#if defined(_WIN32)
        SetLastError(code);
#else
        errno = code == 2 ? ENOENT : EACCES;
#endif
        FailWithLastError(parts...);
    };
    const support::FAILURE missing = FailureOf([&] { return failure(2, "cannot open ", Quoted("x.csv")), 0; });
    EXPECT_EQ(missing.msg, -3002);
    EXPECT_EQ(missing.errorClass, -3002);
    EXPECT_EQ(missing.code, 2U);
    EXPECT_TRUE(std::regex_match(missing.text, std::regex("cannot open 'x\\.csv': .*[^ .\\r\\n]"))) << missing.text;
    const support::FAILURE denied = FailureOf([&] { return failure(5, std::string(400, 'x')), 0; });
    EXPECT_EQ(denied, (support::FAILURE{-3005, -3005, 5, std::string(297, 'x') + "..."}));
}

TEST(FailureTextTest, FailuresAreShownInALine) {
    EXPECT_EQ(Shown({151, 151, 0, 0, "CORDER has no key 'x'"}), "MLCore failure 151: CORDER has no key 'x'");
    EXPECT_EQ(Shown({1, 0}), "MLCore failure 1/0: a boolean check failed");
    EXPECT_EQ(Shown({138, 138, 0, 0, ""}), std::string("MLCore failure 138: ") + DescribeFailure(138));
    EXPECT_EQ(Shown({8, 9, FrameworkException::FieldCoherence, 7, "text"}), "MLCore failure 8/9, field 7: text");
    EXPECT_EQ(Shown({}), "MLCore failure 0: no failure");
    EXPECT_EQ(Shown({999, 999}), "MLCore failure 999: not a code of MLCore");
    EXPECT_EQ(Shown(FrameworkException(std::range_error("what"))), "MLCore failure 125: what");
    for (const unsigned int code : {5U, 0x80070005U}) {
        const std::string shown = Shown(FrameworkException(code));
        EXPECT_TRUE(std::regex_search(shown, std::regex("^MLCore failure -3005: [A-Z]"))) << shown;
        EXPECT_EQ(shown.find_first_of("\r\n"), shown.npos) << shown;
    }
    EXPECT_EQ(Shown(FrameworkException(0x8FFF1234U)), std::string("MLCore failure -7660: ") + DescribeFailure(-7660))
        << "no message of the system";
}

TEST(FailureTextTest, EveryCodeIsDescribed) {
    std::ifstream header(MLCORE_SOURCE_DIR "/MLCore/core/ErrorCodes.h");
    const std::regex constant("constexpr short kErr\\w+ = (-?\\d+);");
    const std::string unknown = DescribeFailure(2);
    std::set<std::string> descriptions;
    std::set<short> codes;
    for (std::string line; std::getline(header, line);) {
        if (std::smatch match; std::regex_search(line, match, constant)) {
            const short code = static_cast<short>(std::stoi(match[1]));
            codes.insert(code);
            descriptions.insert(DescribeFailure(code));
            EXPECT_NE(DescribeFailure(code), unknown) << code;
        }
    }
    EXPECT_EQ(codes.size(), 22U);
    EXPECT_EQ(descriptions.size(), codes.size());
    for (int code = -32768; code <= 32767; ++code) {
        const std::string text = DescribeFailure(static_cast<short>(code));
        ASSERT_FALSE(text.empty() || text.back() == '.') << code;
        ASSERT_EQ(text == unknown, code > -3000 && code != 0 && !codes.contains(static_cast<short>(code))) << code;
    }
}

TEST(FailureTextTest, UnknownKeysNameTheNearest) {
    CBILL bill;
    CSILENT silent;
    EXPECT_EQ(ReadText(silent, "amont"), "CSILENT has no key 'amont'");
    EXPECT_EQ(WriteText(silent, "amont"), "CSILENT has no key 'amont'");
    const struct {
        std::string key;
        const char* nearest;
    } kRows[] = {{"amont", "amount"},
                 {"amountt", "amount"},
                 {"amoutn", "amount"},
                 {"Amount", "amount"},
                 {"AMOUNTS", "amount"},
                 {"amaunt", "amount"},
                 {"coustumer", "customer"},
                 {"customers", "customer"},
                 {"ID", "id"},
                 {"is", "id"},
                 {"i", "id"},
                 {"nothing at all", nullptr},
                 {"amnt", nullptr},
                 {"xy", nullptr},
                 {"x", nullptr},
                 {"customer_name", nullptr},
                 {"moun", nullptr},
                 {std::string(64, 'n'), nullptr},
                 {std::string(100, 'n') + 'n', nullptr}};
    for (const auto& row : kRows) {
        const std::string text = ReadText(bill, row.key);
        EXPECT_TRUE(text.starts_with("CBILL has no key '" + row.key.substr(0, 60))) << text;
        if (row.nearest != nullptr) {
            EXPECT_TRUE(text.ends_with("'; did you mean '" + std::string(row.nearest) + "'?")) << text;
        } else {
            EXPECT_EQ(text.find("mean"), text.npos) << text;
        }
    }
    EXPECT_EQ(WriteText(bill, "amont"), "CBILL has no key 'amont'; did you mean 'amount'?");
    EXPECT_EQ(WriteText(bill, "customer"), "CBILL lists the key 'customer' but does not let it be read or set here");
    EXPECT_EQ(ReadText(*AdoptObject(new CUNLISTED), "x"), "CUNLISTED has no key 'x'");
}

TEST(FailureTextTest, PathsNameTheStep) {
    CBILL bill;
    CBILLS bills;
    COWN own;
    EXPECT_EQ(ReadText(bill, "customer.customer.amont"),
              "CBILL has no key 'amont'; did you mean 'amount'? (step 3 of the path 'customer.customer.amont')");
    EXPECT_EQ(ReadText(bill, "x.customer"), "CBILL has no key 'x' (step 1 of the path 'x.customer')");
    EXPECT_EQ(WriteText(bill, "customer.x"), "CBILL has no key 'x' (step 2 of the path 'customer.x')");
    EXPECT_EQ(WriteText(bill, "customer.nothing.x"),
              "null on the way of the path 'customer.nothing.x': nothing to set");
    EXPECT_EQ(ReadText(bills, "bills[1].customer[0]"),
              "CBILL has no elements, asked for [0] (step 4 of the path 'bills[1].customer[0]')");
    EXPECT_EQ(WriteText(bills, "[2147483647]"),
              "CBILLS has 2 elements, asked for [2147483647] (step 1 of the path '[2147483647]')");
    EXPECT_EQ(ReadText(own, "none.x"), std::string(DescribeFailure(kErrUnknownKey)) + " (step 1 of the path 'none.x')")
        << "a failure without a text";
    EXPECT_THROW(static_cast<void>(own.GetKeyPathValue("own.x")), COWN::EXCEPTION);
    EXPECT_EQ(FailureOf([&] { return own.GetKeyPathValue("other.x"); }).text, "another code");
}

TEST(FailureTextTest, MalformedPathsNameThePlace) {
    CBILL bill;
    const struct {
        const char* path;
        const char* rest;
    } kRows[] = {{"", "a name is wanted at character 1"},
                 {"a..b", "a name is wanted at character 3"},
                 {"a.", "a step is wanted at character 3"},
                 {"a[x]", "an index from 0 to 2147483647 is wanted at character 3"},
                 {"a[]", "an index from 0 to 2147483647 is wanted at character 3"},
                 {"a[2147483648]", "an index from 0 to 2147483647 is wanted at character 3"},
                 {"a[12", "']' is wanted at character 5"},
                 {"a[1]b", "'.', '[' or the end is wanted at character 5"},
                 {"a]", "'.', '[' or the end is wanted at character 2"}};
    for (const auto& row : kRows) {
        const std::string text = "'" + std::string(row.path) + "' is not a key path: " + row.rest;
        EXPECT_EQ(ReadText(bill, row.path), text);
        EXPECT_EQ(WriteText(bill, row.path), text);
    }
}

TEST(FailureTextTest, FactoryAndRootNameTheClass) {
    const COBJECTFACTORY* const factory = COBJECTFACTORY::GetInstance();
    COBJECTFACTORY* const registry = COBJECTFACTORY::GetInstance();
    const auto create = [] { return AdoptObject<COBJECT>(new CBILL); };
    EXPECT_EQ(FailureOf([&] { return factory->CreateObject("class CNONE"); }),
              (support::FAILURE{123, 123, 0, "no class is registered under the name 'class CNONE'"}));
    EXPECT_EQ(FailureOf([&] { return factory->CreateObjectFromIdentifier(nullptr); }),
              (support::FAILURE{123, 123, 0, "no class is registered under the identifier null"}));
    EXPECT_EQ(FailureOf([&] { return registry->RegisterClass(nullptr, create), 0; }),
              (support::FAILURE{-100, -100, 0, "the name of the class to register is null"}));
    EXPECT_EQ(FailureOf([&] { return registry->RegisterClass("class CNONE", nullptr), 0; }),
              (support::FAILURE{-100, -100, 0, "the creator of the class to register is null"}));
    EXPECT_EQ(FailureOf([] { return CBILL().Clone(); }),
              (support::FAILURE{150, 150, 0, "CBILL cannot be copied by Clone()"}));
}

}  // namespace
