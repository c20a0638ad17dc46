#include <predicates/Trees.h>
#include <support/Threads.h>

#include <atomic>

namespace predicates_test {

/// An application's own, which counts how often it is asked.
class CCOUNTING : public CPREDICATE {
    MLCORE_CLASS(CCOUNTING, CPREDICATE)
public:
    explicit CCOUNTING(int its) : CPREDICATE(PredicateType::Value), answer(its) {}
    int Evaluate(COBJECT* object, CDICTIONARY&) const override { return CCOUNTING::Evaluate(object); }
    int Evaluate(COBJECT*) const override { return ++gAsked, answer; }

    int answer;
    static inline int gAsked = 0;
};
MLCORE_REGISTER_CLASS(CCOUNTING)

}  // namespace predicates_test

namespace {

using namespace predicates_test;
CSHAREOBJECTPTR<CDICTIONARY> Sample() {
    const auto tags = CMEMARRAY::Create(Object("red"), Object("blue"));
    return Record({{"n", Object(5L)},
                   {"s", Object("Ren\xE9-Dupont")},
                   {"null", nullptr},
                   {"tags", tags},
                   {"set", CMEMSET::Create(tags)},
                   {"sub", Record({{"n", Object(7L)}})}});
}

// What is not in its list must not hold, so both lists are the rules.
const std::map<int, std::vector<const char*>> kComparisons = {
    {1,
     {"n < 6", "n <= 5", "n > 4", "n >= 5", "n = 5", "n != 6", "n < sub.n", "4 <= $v",
      // the key on the right is mirrored, which reverses strictness
      "5 < n", "4 < n", "4 <= n", "5 > n", "6 > n", "6 >= n", "$v < n", "5 = n",
      // the value Null; a null reference is below
      "Null = Null", "n != Null",
      // texts
      "s = 'REN\xC9-DUPONT' 1", "s = 'rene-dupont' 2", "s like 'Ren?'", "s like '?'", "s like 'ren?' 1",
      "s like 'Rene?' 2", "s begins 'Ren'", "s begins 'REN' 1", "s ends 'pont'", "s contains '-Dup'",
      "s contains 'ENE-d' 2", "s contains (5,'x','Dup')", "'Ren\xE9-Dupont&Cie' begins s", "tags[1] = 'blue'",
      "n in (4,5)", "sub.n in (sub.n,5)", "'blue' in tags", "'BLUE' in set 1", "$v in (5)"}},
    {0,
     {"n < 5", "n <= 4", "n > 5", "n >= 6", "n != 5", "n = 6", "n < n", "n >= sub.n", "5 < 5", "5 < $v", "6 < n",
      "5 <= n", "4 > n", "5 >= n", "$v <= n",
      // what is no value, on either side
      "(5) = 5", "tags != 5", "n != tags", "5 < tags", "tags > n", "(5) < n",
      // nulls
      "null = null", "n != null", "null != n", "n != no.such", "n < Null", "$no != n", "s = 'REN\xC9-DUPONT'",
      "s = 'rene-dupont' 1", "s like 'ren?'", "s like 'rene?' 2", "n like '5'", "s like 5", "s begins 'REN'",
      "s ends 'Ren'", "s contains 'dup'", "n in (4)", "n in ()", "'BLUE' in tags", "null in tags", "tags in tags",
      "n in n", "n in null"}},
    {138, {"n begins '5'", "n = '5'", "n in ('5',5)"}},
    {151, {"tags[2] = 'x'", "n.x = 5", "n < n..n"}}};

TEST(PredicateTest, Compares) {
    const auto record = Sample();
    const auto variables = Record({{"v", Object(5L)}});
    for (const auto& [expected, texts] : kComparisons) {
        for (const char* text : texts) {
            const PREDICATE predicate = Comparison(text);
            int result = 0;
            const auto failure = FailureOf([&] { return result = predicate->Evaluate(record, *variables); });
            EXPECT_EQ(failure != 0 ? failure.msg : result, expected) << text << ": " << failure;
        }
    }
    EXPECT_EQ(Comparison("$v != 5")->Evaluate(record), 0) << "without variables each is null";
    EXPECT_EQ(Comparison("n = 5")->Evaluate(nullptr), 0);
    EXPECT_EQ(FailureOf([&] { return CEQUALPREDICATE::Create(Key("n"), nullptr); }), -100);
}

TEST(PredicateTest, LiesBetween) {
    const auto record = Sample();
    const auto between = [&](const char* tested, const std::string& lower, const std::string& upper, int option = 0) {
        return CCOMPARISONBETWEENPREDICATE::Create(Operand(tested), Operand(lower), Operand(upper),
                                                   CVALUEOBJECT::ComparisonOption{option})
            ->Evaluate(record);
    };
    for (int lower = 3; lower <= 7; ++lower) {
        for (int upper = 3; upper <= 7; ++upper) {
            EXPECT_EQ(between("n", std::to_string(lower), std::to_string(upper)), lower <= 5 && 5 <= upper);
        }
    }
    for (const char* bad : {"null", "tags", "()", "Null", "$v"}) {
        EXPECT_EQ(between(bad, "1", "9") + between("n", bad, "9") + between("n", "1", bad), 0) << bad;
    }
    EXPECT_EQ(between("'b'", "'A'", "'C'"), 0);
    EXPECT_EQ(between("'b'", "'A'", "'C'", 1), 1);
}

TEST(PredicateTest, CompoundsStopWhenDecided) {
    const PREDICATE yes = AdoptObject<CPREDICATE>(new CCOUNTING(3)), no = AdoptObject<CPREDICATE>(new CCOUNTING(0));
    const struct {
        PREDICATE predicate;
        int expected, asked;
    } kRows[] = {
        {CANDPREDICATE::Create({}), 1, 0},
        {CORPREDICATE::Create({}), 0, 0},
        {CANDPREDICATE::Create(no, yes, yes), 0, 1},
        {CANDPREDICATE::Create({yes, yes, yes, yes}), 1, 4},
        {CORPREDICATE::Create(yes, no), 1, 1},
        {CORPREDICATE::Create(no, no, yes), 1, 3},
        {CNOTPREDICATE::Create(yes), 0, 1},
        {CNOTPREDICATE::Create(CORPREDICATE::Create(*CMEMARRAY::Create(no, no))), 1, 2},
        {CANDPREDICATE::Create(CVALUEPREDICATE::True(), CVALUEPREDICATE::Create(-2)), 1, 0},
    };
    for (const auto& row : kRows) {
        CCOUNTING::gAsked = 0;
        EXPECT_EQ(row.predicate->Evaluate(nullptr), row.expected) << Outline(row.predicate);
        EXPECT_EQ(row.predicate->Evaluate(nullptr, *Record({})), row.expected);
        EXPECT_EQ(CCOUNTING::gAsked, 2 * row.asked) << Outline(row.predicate);
    }
    EXPECT_EQ(FailureOf([&] { return CANDPREDICATE::Create(yes, nullptr); }), -100);
    EXPECT_EQ(FailureOf([&] { return CORPREDICATE::Create(*CMEMARRAY::Create(Object(1L))); }), 121);
    EXPECT_EQ(FailureOf([&] { return CNOTPREDICATE::Create(nullptr); }), -100);
    EXPECT_EQ(yes->GetUseCount(), 10) << "what failed holds nothing";
}

TEST(PredicateTest, CopiesOfACompoundShareItsMembers) {
    class GROWING : public CANDPREDICATE {
    public:
        GROWING() = default;
        GROWING(const GROWING&) = default;
        using CANDPREDICATE::AddPredicate;
    };
    const auto first = AdoptObject(new GROWING);
    first->AddPredicate(CVALUEPREDICATE::Create(1));
    const auto copy = AdoptObject(new GROWING(*first));
    copy->AddPredicate(CVALUEPREDICATE::Create(0));
    EXPECT_EQ(first->GetPredicates().GetCount(), 2);
    EXPECT_EQ(first->Evaluate(nullptr), 0) << "what is listed is evaluated";
}

TEST(PredicateTest, SearchesWords) {
    const std::map<const char*, int> kTexts = {{"dupont RENE", 1}, {" \t", 1}, {"rene x", 0}, {"pont", 1}};
    for (const auto& [text, expected] : kTexts) {
        EXPECT_EQ(CSEARCHTEXTPREDICATE::Create(Key("s"), Value(text))->Evaluate(Sample()), expected) << text;
        EXPECT_EQ(CSEARCHTEXTPREDICATE::Create(Value(text))->Evaluate(Sample()), 0) << "no field to look into";
        EXPECT_EQ(CSEARCHTEXTPREDICATE::Create(Key("n"), Value(text))->Evaluate(Sample()), 0) << "a number";
    }
}

TEST(PredicateTest, VisitorsWalkSkipAndCollect) {
    const PREDICATE search = CSEARCHTEXTPREDICATE::Create(Key("c"), Value("t"));
    const PREDICATE tree = CANDPREDICATE::Create(CNOTPREDICATE::Create(Comparison("a in ('x',b)")), search);
    const std::string kBegin = "CCOMPOUNDPREDICATE(COMPOUNDTYPE_AND){CCOMPOUNDPREDICATE(COMPOUNDTYPE_NOT){";
    const std::string kIn =
        "CCOMPARISONPREDICATE(ComparisonType::In){CKEYEXPRESSION(a);"
        "CLISTEXPRESSION(CVALUEEXPRESSION(x),CKEYEXPRESSION(b),);";
    const std::string kSearch = "CSEARCHTEXTPREDICATE(PredicateType::SearchText){";
    const std::string kEnd = kSearch + "CKEYEXPRESSION(c);CVALUEEXPRESSION(t);}}";
    COUTLINE all, flat, top;
    tree->Accept(all);
    flat.entersLists = 0, tree->Accept(flat);
    top.deepest = 1, tree->Accept(top);
    EXPECT_EQ(all.text, kBegin + kIn + "CVALUEEXPRESSION(x);CKEYEXPRESSION(b);}}" + kEnd);
    EXPECT_EQ(flat.text, kBegin + kIn + "}}" + kEnd);
    EXPECT_EQ(top.text, kBegin + '}' + kSearch + "}}");
    EXPECT_EQ(all.keys, "a b c ");
    EXPECT_EQ(Dump(AdoptObject<CPREDICATE>(new CCOUNTING(1))), "CPREDICATE(PredicateType::Value)");
    EXPECT_EQ(Dump(CVALUEPREDICATE::Create(7)) + Dump(CVALUEPREDICATE::False()),
              "CVALUEPREDICATE(TRUE)CVALUEPREDICATE(FALSE)");
    EXPECT_EQ(Dump(static_cast<const CPREDICATE*>(nullptr)), "CPREDICATE()");
    EXPECT_EQ(Dump(static_cast<const CEQUALPREDICATE*>(nullptr)), "CCOMPARISONPREDICATE()");
    EXPECT_EQ(Dump(static_cast<const CANDPREDICATE*>(nullptr)), "CCOMPOUNDPREDICATE()");
}

TEST(PredicateTest, EvaluatorsAndFiltersAsk) {
    const auto rows = CMEMARRAY::Create({Sample(), nullptr, Record({{"n", Object(9L)}}), Record({})});
    EXPECT_EQ(rows->Filter(Comparison("n > 6"))->First(), rows->GetObjectAt(2));
    const PREDICATE limit = Comparison("n >= $v");
    CEVAL eval;
    EXPECT_EQ(eval.Evaluate(limit, rows->First()), 0);
    EXPECT_EQ(eval.Evaluate(nullptr, nullptr), 1);
    eval = CEVAL(Record({{"v", Object(5L)}}));
    EXPECT_EQ(eval.Evaluate(limit, rows->First()), 1);
}

TEST(PredicateTest, ThreadsShareOne) {
    const PREDICATE between = CCOMPARISONBETWEENPREDICATE::Create(Key("sub.n"), Value(10L), Operand("$v"));
    const PREDICATE shared =
        CORPREDICATE::Create(CANDPREDICATE::Create(Comparison("sub.n > 50"), Comparison("s in ('a','b') 1")),
                             CNOTPREDICATE::Create(between));
    std::atomic<int> found{0};
    support::RunTogether(4, [&](int thread) {
        const auto variables = Record({{"v", Object(89L)}});
        const auto record = Record({{"s", Object(thread % 2 == 0 ? "A" : "c")}, {"sub", Record({})}});
        for (long n = 0; n < 100; ++n) {
            record->SetKeyPathValue("sub.n", Object(n));
            found += shared->Evaluate(record, *variables);
        }
    });
    // 0..9 and 90..99 for all, 51..89 for the two with "A"
    EXPECT_EQ(found, 4 * 20 + 2 * 39);
}

}  // namespace
