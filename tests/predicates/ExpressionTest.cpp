#include <predicates/Trees.h>
#include <values/Thing.h>

#include <type_traits>

namespace values_test {
MLCORE_REGISTER_CLASS(CTHING)
}

namespace predicates_test {

/// The value of the first of its parameters, which are expressions.
class CFIRST : public CFUNCTIONEXPRESSION {
    MLCORE_CLASS(CFIRST, CFUNCTIONEXPRESSION)
public:
    explicit CFIRST(CARRAY& parameters) : CFUNCTIONEXPRESSION("FIRST", parameters) {}
    OBJECT Evaluate(COBJECT* object, CDICTIONARY&) override { return CFIRST::Evaluate(object); }
    OBJECT Evaluate(COBJECT* object) override {
        return dynamic_cast<CEXPRESSION&>(*GetParameters().First()).Evaluate(object);
    }
};
MLCORE_REGISTER_CLASS(CFIRST)

}  // namespace predicates_test

namespace {

using namespace predicates_test;
using values_test::CTHING;

std::string Shown(COBJECT* object) {
    const auto* const array = dynamic_cast<const CARRAY*>(object);
    if (array == nullptr) {
        return object == nullptr ? "null" : Dump(dynamic_cast<const CVALUEOBJECT*>(object));
    }
    std::string text;
    for (const OBJECT& each : *array) {
        text += Shown(each) + ' ';
    }
    return '[' + text + ']';
}

// The operand, its value with and without variables, its dump.
const char* const kRows = R"(n|5|5|CKEYEXPRESSION(n)
inner.n|7|7|CKEYEXPRESSION(inner.n)
row[1].n|7|7|CKEYEXPRESSION(row[1].n)
row.n|[7 7 ]|[7 7 ]|CKEYEXPRESSION(row.n)
inner.empty.x|null|null|CKEYEXPRESSION(inner.empty.x)
none.x|null|null|CKEYEXPRESSION(none.x)
'it's'|it's|it's|CVALUEEXPRESSION(it's)
Null|Null|Null|CVALUEEXPRESSION(Null)
$v|var|null|CVARIABLEEXPRESSION(v)
$V|null|null|CVARIABLEEXPRESSION(V)
@n|null|null|COBJECTEXPRESSION(n)
()|[]|[]|CLISTEXPRESSION()
(1)|[1 ]|[1 ]|CLISTEXPRESSION(CVALUEEXPRESSION(1),)
(n,$v,())|[5 var [] ]|[5 null [] ]|CLISTEXPRESSION(CKEYEXPRESSION(n),CVARIABLEEXPRESSION(v),CLISTEXPRESSION(),))";

TEST(ExpressionTest, EvaluatesAndDumps) {
    const auto variables = Record({{"v", Object("var")}});
    const OBJECT inner = CTHING::Create({{"n", Object(7L)}, {"empty", nullptr}});
    const auto record = Record({{"n", Object(5L)}, {"row", CMEMARRAY::Create({inner, inner})}, {"inner", inner}});
    for (const std::string& row : Split(kRows, '\n')) {
        const std::vector<std::string> cells = Split(row, '|');
        const EXPRESSION expression = Operand(cells[0]);
        EXPECT_EQ(Shown(expression->Evaluate(record, *variables)), cells[1]) << row;
        EXPECT_EQ(Shown(expression->Evaluate(record)), cells[2]) << row;
        EXPECT_EQ(Dump(expression), cells[3]);
    }
    for (const char* key : {"inner.unknown", "row[2]", "n..n", ""}) {
        EXPECT_EQ(FailureOf([&] { return Key(key)->Evaluate(record); }), 151) << key;
    }
    EXPECT_TRUE(!Key("n")->Evaluate(nullptr));
    EXPECT_EQ(Shown(Value(5L)->Evaluate(nullptr)), "5");

    const auto parameters = CMEMARRAY::Create(Key("n"));
    const EXPRESSION function = AdoptObject<CEXPRESSION>(new CFIRST(*parameters));
    parameters->RemoveAll();
    EXPECT_EQ(Shown(function->Evaluate(record, *variables)), "5");
    EXPECT_EQ(Dump(function), "CFUNCTIONEXPRESSION(FIRST(...))");
    EXPECT_EQ(Dump(AdoptObject(new CFIRST(*parameters))), "CFUNCTIONEXPRESSION(FIRST())");
    EXPECT_EQ(Dump(static_cast<const CEXPRESSION*>(nullptr)), "CEXPRESSION()");
    EXPECT_EQ(Dump(static_cast<const CVALUEEXPRESSION*>(nullptr)), "CVALUEEXPRESSION()");
    EXPECT_EQ(Dump(static_cast<const CFUNCTIONEXPRESSION*>(nullptr)), "CFUNCTIONEXPRESSION()");
}

TEST(ExpressionTest, CallersOwnWhatTheyGet) {
    const EXPRESSION constant = Value("a");
    dynamic_cast<CVALUEOBJECT&>(*constant->Evaluate(nullptr)).SetValue("changed");
    EXPECT_EQ(Shown(constant->Evaluate(nullptr)), "a");
    const auto items = CMEMARRAY::Create(constant, Value("b"));
    const EXPRESSION list = CLISTEXPRESSION::Create(*items);
    const PREDICATE in = CCOMPARISONINPREDICATE::Create(constant, list);
    items->RemoveAll();
    const OBJECT values = list->Evaluate(nullptr);
    dynamic_cast<CVALUEOBJECT&>(*values->GetKeyPathValue("[0]")).SetValue("changed");
    dynamic_cast<CARRAY&>(*values).RemoveObjectAt(1);
    EXPECT_EQ(Shown(list->Evaluate(nullptr)), "[a b ]");
    EXPECT_EQ(in->Evaluate(nullptr), 1);

    const auto moved = AdoptObject(new CVALUEEXPRESSION(std::move(dynamic_cast<CVALUEEXPRESSION&>(*constant))));
    EXPECT_EQ(Dump(moved) + Dump(constant), "CVALUEEXPRESSION(a)CVALUEEXPRESSION(a)");
    EXPECT_EQ(moved->GetUseCount(), 1);
    const EXPRESSION path = Key("a.b");
    const auto movedPath = AdoptObject(new CKEYEXPRESSION(std::move(dynamic_cast<CKEYEXPRESSION&>(*path))));
    EXPECT_EQ(Dump(movedPath) + Dump(path), "CKEYEXPRESSION(a.b)CKEYEXPRESSION(a.b)");
    const auto movedList = AdoptObject(new CLISTEXPRESSION(std::move(dynamic_cast<CLISTEXPRESSION&>(*list))));
    EXPECT_EQ(Dump(movedList), Dump(list));
    EXPECT_FALSE(std::is_copy_assignable_v<CVALUEEXPRESSION>);
    EXPECT_FALSE(std::is_copy_assignable_v<CKEYEXPRESSION>);

    const auto stranger = CMEMARRAY::Create(constant, CTHING::Create());
    EXPECT_EQ(FailureOf([&] { return CLISTEXPRESSION::Create(constant, nullptr); }), -100);
    EXPECT_EQ(FailureOf([&] { return CLISTEXPRESSION::Create(*CMEMARRAY::Create(OBJECT())); }), -100);
    EXPECT_EQ(FailureOf([&] { return CLISTEXPRESSION::Create(*stranger); }), 121);
}

}  // namespace
