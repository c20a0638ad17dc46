// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/LikePattern.h>
#include <MLCore/values/TolerantComparison.h>
#include <gtest/gtest.h>
#include <support/Failure.h>
#include <values/Thing.h>

#include <memory>

namespace {

using namespace MLCore;
using values_test::OBJECTS;

CSHAREOBJECTPTR<CDICTIONARY> Order(long amount) {
    return CMEMDICTIONARY::Create("amount", CVALUEOBJECT::Create(amount));
}

/// Of the amounts 1000, 2000 and 3000.
CSHAREOBJECTPTR<CARRAY> Orders() { return CMEMARRAY::Create({Order(1000), Order(2000), Order(3000)}); }

TEST(ValuesExamplesTest, Array) {
    const auto orders = Orders();
    const auto isLate = CGREATERPREDICATE::Create(CKEYEXPRESSION::Create("amount"), CVALUEEXPRESSION::Create(1500L));
#include "header_examples/CARRAY.inc"
    EXPECT_EQ(late->GetCount(), 2);
    ASSERT_EQ(dynamic_cast<CARRAY&>(*amounts).GetCount(), 2);
    EXPECT_EQ(ValueOf(dynamic_cast<CARRAY&>(*amounts).First()), 2000L);
    EXPECT_EQ(ValueOf(amount), 3000L);
    orders->AddObject(nullptr);
#include "header_examples/CARRAY.2.inc"
    EXPECT_EQ(known->GetCount(), 3);
}

TEST(ValuesExamplesTest, Dictionary) {
    const auto customer = CMEMDICTIONARY::Create("name", CVALUEOBJECT::Create("Dupont"));
    const auto record = CMEMDICTIONARY::Create();
#include "header_examples/CDICTIONARY.inc"
    EXPECT_EQ(ValueOf(record->GetKeyPathValue("customer.name")), "Dupont");
}

TEST(ValuesExamplesTest, Iterator) {
    const auto orders = Orders();
    OBJECTS shown;
    const auto Print = [&shown](COBJECT* order) { shown.push_back(order); };
#include "header_examples/COBJECTITERATOR.inc"
    EXPECT_EQ(shown, values_test::ElementsIn(*orders));
}

TEST(ValuesExamplesTest, ValueObject) {
#include "header_examples/CVALUEOBJECT.inc"
    EXPECT_EQ(name->GetUseCount(), 1);
    const auto customer = CMEMDICTIONARY::Create("sales", CVALUEOBJECT::Create(12.5));
    const auto order = CMEMDICTIONARY::Create("customer", customer);
#include "header_examples/CVALUEOBJECT.2.inc"
    EXPECT_EQ(sales, 12.5);
}

TEST(ValuesExamplesTest, Value) {
#include "header_examples/CVALUE.inc"
    EXPECT_TRUE(isFive);
    EXPECT_FALSE(isShort);
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(support::FailureOf([&] { return value.ToLong(); }), kErrValueType);
}

TEST(ValuesExamplesTest, LikePattern) {
    const auto option = CVALUEOBJECT::ComparisonOption::CaseSensitive;
#include "header_examples/LikePattern.inc"
    EXPECT_EQ(MatchesLike("Dupont", "Du?", option), 1);
    EXPECT_EQ(MatchesLike("Dupont", "?pon?", option), 1);
    EXPECT_EQ(MatchesLike("Dupont", "D?t", option), 1);
}

TEST(ValuesExamplesTest, TolerantComparison) {
    struct {
        double amount;
    } order = {0.3};
    for (const double amount : {0.1 + 0.2, 0.4}) {
#include "header_examples/TolerantComparison.inc"
        EXPECT_EQ(order.amount, amount == 0.4 ? 0.4 : 0.3);
    }
}

}  // namespace
