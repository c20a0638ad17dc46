// What the failures of predicates and expressions say.
#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>
#include <MLCore/predicates/CFUNCTIONEXPRESSION.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CVALUEOBJECT.h>
#include <predicates/KeyText.h>
#include <predicates/Trees.h>

#include <functional>

namespace predicates_test {

class CUPPER : public CFUNCTIONEXPRESSION {
    MLCORE_CLASS(CUPPER, CFUNCTIONEXPRESSION)
public:
    explicit CUPPER(CARRAY& parameters) : CFUNCTIONEXPRESSION("upper", parameters) {}
    OBJECT Evaluate(COBJECT*, CDICTIONARY&) override { return {}; }
    OBJECT Evaluate(COBJECT*) override { return {}; }
};
class CISNEW : public CPREDICATE {
    MLCORE_CLASS(CISNEW, CPREDICATE)
public:
    CISNEW() : CPREDICATE(PredicateType::Value) {}
    int Evaluate(COBJECT*, CDICTIONARY&) const override { return 1; }
    int Evaluate(COBJECT*) const override { return 1; }
};
/// Of an unknown type, or with operands that no comparison has.
class CRATHER : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(CRATHER, CCOMPARISONPREDICATE)
public:
    explicit CRATHER(int type, std::initializer_list<EXPRESSION> operands = {})
        : CCOMPARISONPREDICATE(CVALUEOBJECT::ComparisonType{type}, {}, operands) {}
    int Evaluate(COBJECT*, CDICTIONARY&) const override { return 1; }
    int Evaluate(COBJECT*) const override { return 1; }
};
class CHALFOF : public CCOMPOUNDPREDICATE {
    MLCORE_CLASS(CHALFOF, CCOMPOUNDPREDICATE)
public:
    explicit CHALFOF(int type) : CCOMPOUNDPREDICATE(Type{type}) {}
};
MLCORE_REGISTER_CLASS(CUPPER)
MLCORE_REGISTER_CLASS(CISNEW)
MLCORE_REGISTER_CLASS(CRATHER)
MLCORE_REGISTER_CLASS(CHALFOF)

}  // namespace predicates_test

namespace {

using namespace predicates_test;

struct ROW {
    std::function<void()> action;
    int code;
    const char* text;
};

void Expect(const std::vector<ROW>& rows) {
    for (const ROW& row : rows) {
        EXPECT_EQ(FailureOf([&row] { row.action(); }), support::Saying(row.code, row.text));
    }
}

ROW Reading(const char* xml, const char* text) {
    return {[xml] { static_cast<void>(Read<CPREDICATE>(xml)); }, 138, text};
}
ROW ReadingValue(const char* type, const char* value, const char* text) {
    const std::string xml = "<value type='" + std::string(type) + "' value='" + value + "'/>";
    return {[xml] { static_cast<void>(Read<CEXPRESSION>(xml)); }, 138, text};
}
ROW Writing(const CSHAREOBJECTPTR<CPREDICATE>& predicate, const char* text) {
    return {[predicate] { Written(*predicate); }, 138, text};
}
ROW WritingValue(const CVALUE& value, const char* text) {
    return {[value] { Written(*Value(value)); }, 138, text};
}
ROW Making(std::function<PREDICATE()> make, int code, const char* text) { return {std::move(make), code, text}; }

TEST(PredicateFailureTextTest, NamesWhatIsReadAndWhatIsWanted) {
    Expect({
        Reading(
            "<nor/>",
            "line 1, column 1: the element 'nor' is not a predicate, wanted one of and, begins, between, contains, "),
        Reading("<equal><true/></equal>",
                "line 1, column 8, in <equal>: the element 'true' is not an expression, wanted one of key, list, "
                "object, value, variable"),
        Reading("<equal><function/></equal>", "a function cannot be read"),
        Reading("<not><true/><false/></not>", "a predicate 'not' has one member; found members: 2"),
        Reading("<like compType='exact'/>",
                "the attribute 'compType' of a comparison is 'exact', wanted caseSensitive, caseInsensitive or "
                "diacriticInsentive"),
        ReadingValue("guid", "0", "the type of a value is 'guid', wanted one of short, uShort, long, "),
        ReadingValue("double", "1,5", "'1,5' is not a value of the type double"),
        ReadingValue("short", "32768", "'32768' is not a value of the type short"),
        ReadingValue("float", "1e39", "'1e39' is not a value of the type float"),
        ReadingValue("date", "2024-02-30", "'2024-02-30' is not a value of the type date"),
        ReadingValue("dateTime", "2024-03-05", "'2024-03-05' is not a value of the type dateTime"),
    });
}

TEST(PredicateFailureTextTest, NamesWhatCannotBeWritten) {
    const auto parameters = CMEMARRAY::Create();
    const EXPRESSION upper = AdoptObject<CEXPRESSION>(new CUPPER(*parameters));
    Expect({
        Writing(CEQUALPREDICATE::Create(Key("a"), upper), "the function 'upper' cannot be written to a key stream"),
        Writing(AdoptObject<CPREDICATE>(new CISNEW), "the class CISNEW cannot be written to a key stream"),
        Writing(AdoptObject<CPREDICATE>(new CRATHER(12)), "comparison type 12 is unknown, wanted 0 to 11"),
        Writing(AdoptObject<CPREDICATE>(new CHALFOF(3)), "compound type 3 is unknown"),
        Writing(AdoptObject<CPREDICATE>(new CHALFOF(2)), "a predicate 'not' has one member; found members: 0"),
        WritingValue(CVALUE(CVALUE::Type::Guid, nullptr), "the value is a Guid"),
        WritingValue(CDATE(30, 2, 2024), "the date '2024-02-30' is not valid"),
        WritingValue(CTIME(24, 0, 0), "a time outside 00:00:00 to 23:59:59 cannot be written"),
        WritingValue(CDATETIME(CDATE(5, 3, 2024), CTIME(24, 0, 0)), "a time outside 00:00:00 to 23:59:59"),
        {[] {
             CBUFFERSTREAM empty;
             CXMLKEYREADER reader(empty);
             AdoptObject(new CISNEW)->DoInitState(reader);
         },
         138, "the class CISNEW cannot be read from a key stream"},
    });
}

TEST(PredicateFailureTextTest, NamesTheOperandAndTheMemberThatIsWrong) {
    const EXPRESSION a = Key("a");
    const PREDICATE yes = CVALUEPREDICATE::True();
    Expect({
        Making([&] { return CEQUALPREDICATE::Create(nullptr, a); }, -100,
               "the left operand of the comparison 'equal' is null"),
        Making([&] { return CLIKEPREDICATE::Create(a, nullptr); }, -100,
               "the right operand of the comparison 'like' is null"),
        Making([&] { return CCOMPARISONINPREDICATE::Create(nullptr, a); }, -100,
               "the tested expression of the comparison 'in' is null"),
        Making([&] { return CCOMPARISONINPREDICATE::Create(a, nullptr); }, -100,
               "the set of the comparison 'in' is null"),
        Making([&] { return CCOMPARISONBETWEENPREDICATE::Create(a, nullptr, a); }, -100,
               "the lower bound of the comparison 'between' is null"),
        Making([&] { return CCOMPARISONBETWEENPREDICATE::Create(a, a, nullptr); }, -100,
               "the upper bound of the comparison 'between' is null"),
        Making(
            [&] {
                return PREDICATE(AdoptObject(new CRATHER(12, {a, a, a, a})));
            },
            138, "the comparison 'unknown' has 4 operands, wanted at most 3"),
        Making([&] { return CSEARCHTEXTPREDICATE::Create(nullptr); }, -100, "the text of a search for words is null"),
        Making([&] { return CSEARCHTEXTPREDICATE::Create(nullptr, a); }, -100,
               "the field of a search for words is null"),
        Making([&] { return CANDPREDICATE::Create(yes, nullptr); }, -100,
               "element [1] of a compound predicate is null"),
        Making([&] { return CNOTPREDICATE::Create(nullptr); }, -100, "element [0] of a compound predicate is null"),
        Making([&] { return CORPREDICATE::Create(*CMEMARRAY::Create(yes, a)); }, 121,
               "element [1] of a compound predicate is of the class CKEYEXPRESSION, wanted CPREDICATE"),
        {[&] { static_cast<void>(CLISTEXPRESSION::Create(a, nullptr)); }, -100,
         "element [1] of a list of expressions is null"},
        {[&] { static_cast<void>(CLISTEXPRESSION::Create(*CMEMARRAY::Create(yes))); }, 121,
         "element [0] of a list of expressions is of the class CVALUEPREDICATE, wanted CEXPRESSION"},
    });
}

TEST(PredicateFailureTextTest, ComparisonsNameBothTypesAndTheKey) {
    const auto order = CMEMDICTIONARY::Create();
    order->SetKeyValue("amount", CVALUEOBJECT::Create("12 EUR"));
    const auto key = CKEYEXPRESSION::Create("amount");
    const auto number = CVALUEEXPRESSION::Create(5L);
    const CSHAREOBJECTPTR<CPREDICATE> predicates[] = {CGREATERPREDICATE::Create(key, number),
                                                      CLESSERPREDICATE::Create(number, key),
                                                      CCOMPARISONBETWEENPREDICATE::Create(key, number, number)};
    const char* const comparisons[] = {"greater", "lesser", "between"};
    for (std::size_t i = 0; i < std::size(predicates); ++i) {
        const std::string place = std::string("(in the comparison '") + comparisons[i] + "' of the key 'amount')";
        EXPECT_EQ(FailureOf([&] { return predicates[i]->Evaluate(order); }),
                  support::Saying(138, "cannot compare a String with a Long ", place.c_str()));
    }
}

}  // namespace
