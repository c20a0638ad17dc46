#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/predicates/CPREDICATEHELPER.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <predicates/Trees.h>

namespace predicates_test {

class CNEAR : public CFUNCTIONEXPRESSION {
    MLCORE_CLASS(CNEAR, CFUNCTIONEXPRESSION)
public:
    explicit CNEAR(CARRAY& parameters) : CFUNCTIONEXPRESSION("near", parameters) {}
    OBJECT Evaluate(COBJECT*, CDICTIONARY&) override { return {}; }
    OBJECT Evaluate(COBJECT*) override { return {}; }
};
/// A comparison that the library does not know.
class CSOUNDSLIKE : public CCOMPARISONBINARYPREDICATE {
    MLCORE_CLASS(CSOUNDSLIKE, CCOMPARISONBINARYPREDICATE)
public:
    explicit CSOUNDSLIKE(int type)
        : CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType{type}, Key("a"), Key("b"), {}) {}
};
/// A compound that the library does not know.
class CMOSTOF : public CCOMPOUNDPREDICATE {
    MLCORE_CLASS(CMOSTOF, CCOMPOUNDPREDICATE)
public:
    CMOSTOF() : CCOMPOUNDPREDICATE(Type{3}) {}
};
/// A predicate of a kind of its own; it shows another in its place if it has one.
class CSECRET : public CPREDICATE {
    MLCORE_CLASS(CSECRET, CPREDICATE)
public:
    explicit CSECRET(PREDICATE shown) : CPREDICATE(PredicateType::Compound), mShown(std::move(shown)) {}
    int Evaluate(COBJECT*, CDICTIONARY&) const override { return 0; }
    int Evaluate(COBJECT*) const override { return 0; }
    void Accept(CPREDICATEVISITOR& visitor) const override {
        !mShown ? CPREDICATE::Accept(visitor) : mShown->Accept(visitor);
    }
    PREDICATE mShown;
};
MLCORE_REGISTER_CLASS(CNEAR)
MLCORE_REGISTER_CLASS(CSOUNDSLIKE)
MLCORE_REGISTER_CLASS(CMOSTOF)
MLCORE_REGISTER_CLASS(CSECRET)

}  // namespace predicates_test

namespace {

using namespace predicates_test;
using KEYS = std::vector<CPREDICATEHELPER::CKEY>;
PREDICATE IsEqual(const EXPRESSION& value) { return CEQUALPREDICATE::Create(Key("k"), value); }

TEST(PredicateHelper, WritesEachKindAsQueryText) {
    const PREDICATE a = Comparison("a < 1"), b = Comparison("b like 'x?'"), yes = CVALUEPREDICATE::Create(7);
    const EXPRESSION nested = CLISTEXPRESSION::Create({Value("x"), Operand("(1,c)"), Operand("()")});
    const auto parameters = CMEMARRAY::Create(Key("hidden"));
    const std::vector<std::pair<PREDICATE, std::string>> cases = {
        {CVALUEPREDICATE::False(), "1=0"},
        {CANDPREDICATE::Create(a, b), "((a < 1) AND (b LIKE 'x?'))"},
        {CORPREDICATE::Create(a, yes, CNOTPREDICATE::Create(a)), "((a < 1) OR (1=1) OR (NOT(a < 1)))"},
        {CNOTPREDICATE::Create(CORPREDICATE::Create({a})), "NOT(((a < 1)))"},
        {CANDPREDICATE::Create({CANDPREDICATE::Create({}), CORPREDICATE::Create({})}), "((()) AND (()))"},
        {CORPREDICATE::Create({Comparison("a <= $v"), Comparison("1 > b.c[2]"), Comparison("a >= 2"),
                               Comparison("a = 2"), Comparison("a != Null"), Comparison("a begins 'x'"),
                               Comparison("a ends 'x' 1")}),
         "((a <= v) OR (1 > b.c[2]) OR (a >= 2) OR (a = 2) OR (a != Null) OR (a BEGINS 'x') OR (a ENDS 'x'))"},
        {Comparison("a contains $v"), "a CONTAINS v"},
        {AdoptObject<CPREDICATE>(new CSOUNDSLIKE(11)), "a 11 b"},
        {AdoptObject<CPREDICATE>(new CSOUNDSLIKE(-1)), "a -1 b"},
        {AdoptObject<CPREDICATE>(new CMOSTOF), "CCOMPOUNDPREDICATE()"},
        {Comparison("a in (1,2)"), "a IN [1 , 2 ,  ]"},
        {Comparison("a in b"), "a IN [b ]"},
        {CCOMPARISONINPREDICATE::Create(Key("a"), nested), "a IN ['x' , 1 , c ,  ,  ,  ]"},
        {CCOMPARISONBETWEENPREDICATE::Create(Key("a"), Value(1L), Key("b")), "a BETWEEN (1,b ) "},
        {CSEARCHTEXTPREDICATE::Create(Value("x")), " FREETEXT(*,'x' )"},
        {CSEARCHTEXTPREDICATE::Create(Key("a"), Value("x")), " FREETEXT(*,a,'x' )"},
        {IsEqual(AdoptObject<CEXPRESSION>(new CNEAR(*parameters))), "k = near(TODO)"},
        {IsEqual(COBJECTEXPRESSION::Create("it")), "k = it"},
        {CNOTPREDICATE::Create(AdoptObject<CPREDICATE>(new CSECRET({}))), "NOT(CPREDICATE(PredicateType::Compound))"},
        {CNOTPREDICATE::Create(AdoptObject<CPREDICATE>(new CSECRET(a))), "NOT(a < 1)"},
        {nullptr, {}}};
    for (const auto& [predicate, text] : cases) {
        EXPECT_EQ(CPREDICATEHELPER(predicate).GetStrSQL(), text);
    }
    CBUFFERSTREAM out;
    out.Open();
    CXMLKEYWRITER writer(out);
    const OBJECT unread = COBJECTFACTORY::GetInstance()->CreateObject("class MLCore::CNOTPREDICATE");
    EXPECT_EQ(FailureOf([&] { dynamic_cast<CPREDICATE&>(*unread).DoWriteState(writer); }), 138) << "NOT of nothing";
    for (CPREDICATE* const unknown :
         {static_cast<CPREDICATE*>(new CSOUNDSLIKE(12)), static_cast<CPREDICATE*>(new CMOSTOF)}) {
        const PREDICATE held = AdoptObject(unknown);
        EXPECT_EQ(FailureOf([&] { held->DoWriteState(writer); }), 138);
    }
}

TEST(PredicateHelper, WritesEachTypeOfValueAndQuotesTextsOnly) {
    const CDATETIME moment(CDATE(5, 3, 2024), CTIME(7, 5, 9));
    struct {
        CVALUE value;
        std::string quoted, raw;
    } const cases[] = {{"O'Brien", "'O''Brien'", "O'Brien"},
                       {"' OR '1'='1", "''' OR ''1''=''1'", "' OR '1'='1"},
                       {CDATE(5, 3, 2024), "05032024", "05032024"},
                       {moment, moment.ToStringXML(), moment.ToStringXML()},
                       {CTIME(7, 5, 9), "CTIME = 07:05:09 CTIMESPAN = 7:05:09", "CTIME = 07:05:09 CTIMESPAN = 7:05:09"},
                       {0.1F, "0.1", "0.1"},
                       {-1234.5, "-1234.5", "-1234.5"},
                       {short{-3}, "-3", "-3"},
                       {CVALUE(CVALUE::Type::Guid, nullptr), "CVALUEINCONNU", "CVALUEINCONNU"}};
    for (const auto& [value, quoted, raw] : cases) {
        const PREDICATE predicate = IsEqual(Value(value));
        EXPECT_EQ(CPREDICATEHELPER(predicate).GetStrSQL(), "k = " + quoted);
        EXPECT_EQ(CPREDICATEHELPER(predicate, CPREDICATEHELPER::Quoting::Raw).GetStrSQL(), "k = " + raw);
        EXPECT_EQ(
            CPREDICATEHELPER(predicate).GetStr(),
            "CCOMPARISONPREDICATE(ComparisonType::Equal)\n\tCKEYEXPRESSION(k)\n\tCVALUEEXPRESSION(" + raw + ")\n");
    }
}

TEST(PredicateHelper, OutlinesTheTree) {
    const CPREDICATEHELPER helper(CANDPREDICATE::Create(CNOTPREDICATE::Create(Comparison("a in (1,'x')")),
                                                        CORPREDICATE::Create({}), CVALUEPREDICATE::True()));
    EXPECT_EQ(CPREDICATEHELPER(helper).GetStr(),
              "CCOMPOUNDPREDICATE(COMPOUNDTYPE_AND)\n(\n"
              "\tCCOMPOUNDPREDICATE(COMPOUNDTYPE_NOT)\n\t(\n"
              "\t\tCCOMPARISONPREDICATE(ComparisonType::In)\n\t\t\tCKEYEXPRESSION(a)\n"
              "\t\t\tCLISTEXPRESSION(CVALUEEXPRESSION(1),CVALUEEXPRESSION(x),)\n"
              "\t\t\t\tCVALUEEXPRESSION(1)\n\t\t\t\tCVALUEEXPRESSION(x)\n\t)\n"
              "\tCCOMPOUNDPREDICATE(COMPOUNDTYPE_OR)\n\t(\n\t)\n"
              "\tCVALUEPREDICATE(TRUE)\n)\n");
    EXPECT_EQ(CPREDICATEHELPER(nullptr).GetStr(), "");
}

TEST(PredicateHelper, ListsEachKeyOnceInTheOrderOfTheirFirstUse) {
    const PREDICATE tested =
        CANDPREDICATE::Create(Comparison("b = a"), Comparison("c in (a,d.e,B)"), IsEqual(Key("b")));
    EXPECT_EQ(CPREDICATEHELPER(tested).GetDistinctKeyExpressionKeys(),
              (KEYS{{"b"}, {"a"}, {"c"}, {"d.e"}, {"B"}, {"k"}}));

    const auto members = CMEMARRAY::Create();
    for (int i = 0; i < 100'000; ++i) {
        members->AddObject(Comparison("key" + std::to_string(i % 50'000) + " = 1"));
    }
    const KEYS keys = CPREDICATEHELPER(CORPREDICATE::Create(*members)).GetDistinctKeyExpressionKeys();
    EXPECT_EQ(keys.size(), 50'000);
    EXPECT_EQ(keys.back().GetKey(), "key49999");
}

}  // namespace
