// The examples of the folder's headers: see header_examples.cmake.

#include <gtest/gtest.h>
#include <predicates/Trees.h>

namespace predicates_test {

#include "header_examples/CFUNCTIONEXPRESSION.inc"
MLCORE_REGISTER_CLASS(CTODAY)

#include "header_examples/Dispatch.inc"

}  // namespace predicates_test

namespace {

using namespace predicates_test;

CSHAREOBJECTPTR<CARRAY> Orders() {
    return CMEMARRAY::Create({Record({{"customer", Object("b")}, {"sales", Object(1L)}, {"amount", Object(2000L)}}),
                              Record({{"customer", Object("A")}, {"sales", Object(2L)}, {"amount", Object(500L)}}),
                              Record({{"customer", Object("A")}, {"sales", Object(3L)}, {"amount", Object(700L)}})});
}

TEST(PredicatesExamplesTest, Predicate) {
    const auto orders = Orders();
#include "header_examples/CPREDICATE.inc"
    ASSERT_EQ(large->GetCount(), 1);
    EXPECT_EQ(large->First(), orders->First());
}

TEST(PredicatesExamplesTest, BinaryPredicate) {
#include "header_examples/BinaryPredicates.inc"
    EXPECT_EQ(Orders()->Filter(isLarge)->GetCount(), 1);
}

TEST(PredicatesExamplesTest, Function) {
    const EXPRESSION today = AdoptObject<CEXPRESSION>(new CTODAY);
    EXPECT_EQ(Dump(today), "CFUNCTIONEXPRESSION(today())");
    EXPECT_EQ(ValueOf(today->Evaluate(nullptr)).GetType(), CVALUE::Type::Date);
}

TEST(PredicatesExamplesTest, Dispatch) {
    EXPECT_EQ(Describe(*Key("a.b")), "the property a.b");
    EXPECT_EQ(Describe(*Operand("$v")), "the variable v");
    EXPECT_EQ(Describe(*Value(5L)), "CVALUEEXPRESSION");
}

TEST(PredicatesExamplesTest, Helper) {
#include "header_examples/CPREDICATEHELPER.inc"
    EXPECT_EQ(helper.GetStrSQL(), "name = 'O''Brien'");
    EXPECT_NE(helper.GetStr().find("CVALUEEXPRESSION(O'Brien)"), std::string::npos) << helper.GetStr();
}

TEST(PredicatesExamplesTest, Visitor) {
#include "header_examples/CPREDICATEVISITOR.inc"
    KEYS keys;
    Comparison("a < b")->Accept(keys);
    EXPECT_EQ(keys.keys, (std::vector<std::string>{"a", "b"}));
}

TEST(PredicatesExamplesTest, Sorting) {
    const auto orders = Orders();
#include "header_examples/CSORTDESCRIPTORBUILDER.inc"
#include "header_examples/SortArray.inc"
    EXPECT_EQ(sorted->First(), orders->Last());
    EXPECT_EQ(sorted->Last(), orders->First());
}

TEST(PredicatesExamplesTest, SortingByRules) {
    const auto invoice = [](const CVALUE& paid, const char* number) {
        return Record({{"paid", Object(paid)}, {"number", Object(number)}});
    };
    const auto invoices =
        CMEMARRAY::Create({invoice({}, "Facture 1"), invoice(CDATE(1, 2, 2024), "Facture 2"),
                           invoice(CDATE(1, 2, 2024), "Facture 10"), invoice(CDATE(1, 1, 2024), "Facture 3")});
#include "header_examples/SORTRULE.inc"
    EXPECT_EQ(sorted->GetObjectIndex(invoices->GetObjectAt(3)), 0);
    EXPECT_EQ(sorted->GetObjectIndex(invoices->GetObjectAt(2)), 1);
    EXPECT_EQ(sorted->GetObjectIndex(invoices->GetObjectAt(1)), 2);
    EXPECT_EQ(sorted->GetObjectIndex(invoices->GetObjectAt(0)), 3);
}

}  // namespace
