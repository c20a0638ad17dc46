#include <MLCore/predicates/Dispatch.h>
#include <predicates/Trees.h>

#include <type_traits>
#include <utility>

namespace predicates_test {

/// Declares itself as a key.
class COWNKEY : public CKEYEXPRESSION {
    MLCORE_CLASS(COWNKEY, CKEYEXPRESSION)
public:
    COWNKEY() : CKEYEXPRESSION("own") {}
};
class COWNFUNCTION : public CFUNCTIONEXPRESSION {
    MLCORE_CLASS(COWNFUNCTION, CFUNCTIONEXPRESSION)
public:
    OBJECT Evaluate(COBJECT*, CDICTIONARY&) override { return {}; }
    OBJECT Evaluate(COBJECT*) override { return {}; }
};
/// Says that it is a key, but derives from none.
class COWNEXPRESSION : public CEXPRESSION {
    MLCORE_CLASS(COWNEXPRESSION, CEXPRESSION)
public:
    COWNEXPRESSION() : CEXPRESSION(ExpressionType::Key) {}
    OBJECT Evaluate(COBJECT*, CDICTIONARY&) override { return {}; }
    OBJECT Evaluate(COBJECT*) override { return {}; }
    void DoWriteState(CKEYWRITER&) const override {}
    void DoInitState(CKEYREADER&) override {}
};
class COWNBINARY : public CCOMPARISONBINARYPREDICATE {
    MLCORE_CLASS(COWNBINARY, CCOMPARISONBINARYPREDICATE)
public:
    COWNBINARY() : CCOMPARISONBINARYPREDICATE(CVALUEOBJECT::ComparisonType{12}, Key("a"), Key("b"), {}) {}
};
class COWNCOMPARISON : public CCOMPARISONPREDICATE {
    MLCORE_CLASS(COWNCOMPARISON, CCOMPARISONPREDICATE)
public:
    COWNCOMPARISON() : CCOMPARISONPREDICATE(CVALUEOBJECT::ComparisonType::In) {}
    int Evaluate(COBJECT*, CDICTIONARY&) const override { return 0; }
    int Evaluate(COBJECT*) const override { return 0; }
};
class COWNCOMPOUND : public CCOMPOUNDPREDICATE {
    MLCORE_CLASS(COWNCOMPOUND, CCOMPOUNDPREDICATE)
public:
    COWNCOMPOUND() : CCOMPOUNDPREDICATE(Type::AND) {}
};
class COWNPREDICATE : public CPREDICATE {
    MLCORE_CLASS(COWNPREDICATE, CPREDICATE)
public:
    COWNPREDICATE() : CPREDICATE(PredicateType::SearchText) {}
    int Evaluate(COBJECT*, CDICTIONARY&) const override { return 0; }
    int Evaluate(COBJECT*) const override { return 0; }
};
/// Does not say that it is another class.
class COWNAND : public CANDPREDICATE {};

MLCORE_REGISTER_CLASS(COWNKEY)
MLCORE_REGISTER_CLASS(COWNFUNCTION)
MLCORE_REGISTER_CLASS(COWNEXPRESSION)
MLCORE_REGISTER_CLASS(COWNBINARY)
MLCORE_REGISTER_CLASS(COWNCOMPARISON)
MLCORE_REGISTER_CLASS(COWNCOMPOUND)
MLCORE_REGISTER_CLASS(COWNPREDICATE)

}  // namespace predicates_test

namespace {

using namespace predicates_test;

template <class Class>
EXPRESSION NewExpression() {
    return AdoptObject<CEXPRESSION>(new Class);
}
template <class Class>
PREDICATE NewPredicate() {
    return AdoptObject<CPREDICATE>(new Class);
}

/// The class that a node is passed as.
template <class Node>
std::string ClassOf(const Node& node) {
    return Dispatch(node, [&node](const auto& own) {
        EXPECT_EQ(static_cast<const Node*>(&own), &node) << "the node itself, not a copy";
        return std::string(std::decay_t<decltype(own)>::ClassInfoStatic().GetName());
    });
}

TEST(DispatchTest, PassesExpressionsAsTheNearestClassOfTheLibrary) {
    const std::pair<EXPRESSION, std::string> kRows[] = {
        {Key("a"), "CKEYEXPRESSION"},
        {Value(1L), "CVALUEEXPRESSION"},
        {Operand("(1,2)"), "CLISTEXPRESSION"},
        {Operand("$v"), "CVARIABLEEXPRESSION"},
        {Operand("@o"), "COBJECTEXPRESSION"},
        {NewExpression<COWNFUNCTION>(), "CFUNCTIONEXPRESSION"},
        {NewExpression<COWNKEY>(), "CKEYEXPRESSION"},
        {NewExpression<COWNEXPRESSION>(), "CEXPRESSION"},
    };
    for (const auto& [expression, name] : kRows) {
        EXPECT_EQ(ClassOf<CEXPRESSION>(*expression), name) << expression->GetClassName();
    }
}

TEST(DispatchTest, PassesPredicatesAsTheNearestClassOfTheLibrary) {
    std::vector<std::pair<PREDICATE, std::string>> rows = {
        {CVALUEPREDICATE::True(), "CVALUEPREDICATE"},
        {CANDPREDICATE::Create({}), "CANDPREDICATE"},
        {CORPREDICATE::Create({}), "CORPREDICATE"},
        {CNOTPREDICATE::Create(CVALUEPREDICATE::True()), "CNOTPREDICATE"},
        {Comparison("a in (1)"), "CCOMPARISONINPREDICATE"},
        {CCOMPARISONBETWEENPREDICATE::Create(Key("a"), Key("b"), Key("c")), "CCOMPARISONBETWEENPREDICATE"},
        {CSEARCHTEXTPREDICATE::Create(Value("x")), "CSEARCHTEXTPREDICATE"},
        {NewPredicate<COWNBINARY>(), "CCOMPARISONBINARYPREDICATE"},
        {NewPredicate<COWNCOMPARISON>(), "CCOMPARISONPREDICATE"},
        {NewPredicate<COWNCOMPOUND>(), "CCOMPOUNDPREDICATE"},
        {NewPredicate<COWNPREDICATE>(), "CPREDICATE"},
        {NewPredicate<COWNAND>(), "CANDPREDICATE"},
    };
    for (const std::string& name : kNames) {
        if (name != "in") {
            rows.emplace_back(Comparison("a " + name + " b"), "CCOMPARISONBINARYPREDICATE");
        }
    }
    for (const auto& [predicate, name] : rows) {
        EXPECT_EQ(ClassOf<CPREDICATE>(*predicate), name) << predicate->GetClassName() << ' ' << Dump(predicate);
    }
}

TEST(DispatchTest, ChoosesTheNearestOverload) {
    const auto kindOf = [](const PREDICATE& predicate) {
        return Dispatch(
            *predicate, [](const CNOTPREDICATE&) { return std::string("not"); },
            [](const CCOMPOUNDPREDICATE&) { return std::string("compound"); },
            [](const CPREDICATE& other) { return "other " + std::string(other.GetClassName()); });
    };
    EXPECT_EQ(kindOf(CNOTPREDICATE::Create(CVALUEPREDICATE::True())), "not");
    EXPECT_EQ(kindOf(CORPREDICATE::Create({})), "compound");
    EXPECT_EQ(kindOf(NewPredicate<COWNCOMPOUND>()), "compound");
    EXPECT_EQ(kindOf(Comparison("a < b")), "other CLESSERPREDICATE");
    EXPECT_EQ(kindOf(NewPredicate<COWNPREDICATE>()), "other COWNPREDICATE");
}

/// Every class of the library, but not the base classes.
struct EVERYCLASS {
    int operator()(const CCOMPARISONBINARYPREDICATE&) { return ++count; }
    int operator()(const CCOMPARISONINPREDICATE&) { return ++count; }
    int operator()(const CCOMPARISONBETWEENPREDICATE&) { return ++count; }
    int operator()(const CANDPREDICATE&) { return ++count; }
    int operator()(const CORPREDICATE&) { return ++count; }
    int operator()(const CNOTPREDICATE&) { return ++count; }
    int operator()(const CVALUEPREDICATE&) { return ++count; }
    int operator()(const CSEARCHTEXTPREDICATE&) { return ++count; }
    int operator()(const CKEYEXPRESSION&) { return ++count; }
    int operator()(const CVALUEEXPRESSION&) { return ++count; }
    int operator()(const CLISTEXPRESSION&) { return ++count; }
    int operator()(const CVARIABLEEXPRESSION&) { return ++count; }
    int operator()(const CFUNCTIONEXPRESSION&) { return ++count; }
    int operator()(const COBJECTEXPRESSION&) { return ++count; }
    int count = 0;
};

TEST(DispatchTest, FailsWithoutAnOverloadForAnApplicationsClass) {
    EVERYCLASS every;
    EXPECT_EQ(Dispatch(*Comparison("a < b"), every), 1);
    EXPECT_EQ(Dispatch(*Key("a"), every), 2) << "a single callable is not copied";
    for (const PREDICATE& own :
         {NewPredicate<COWNCOMPARISON>(), NewPredicate<COWNCOMPOUND>(), NewPredicate<COWNPREDICATE>()}) {
        EXPECT_EQ(FailureOf([&] { return Dispatch(*own, every); }), support::Saying(121, own->GetClassName()));
    }
    const EXPRESSION own = NewExpression<COWNEXPRESSION>();
    EXPECT_EQ(FailureOf([&] { return Dispatch(*own, every); }), support::Saying(121, "COWNEXPRESSION"));
    EXPECT_EQ(every.count, 2);
}

}  // namespace
