// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/core/CINDEXEDACCESS.h>
#include <MLCore/core/COBJECTFACTORY.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/datetime/CCALENDARBANQUESTRATEGY.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <iostream>
#include <string>

namespace shop {

using namespace MLCore;

// NOLINTBEGIN
#include "header_examples/ClassDeclaration.3.inc"
//
#include "header_examples/ClassDeclaration.inc"
//
#include "header_examples/ClassDeclaration.2.inc"
// NOLINTEND

}  // namespace shop

namespace {

using namespace MLCore;

TEST(CoreExamplesTest, ClassDeclaration) {
    const auto order = shop::CORDER::Create();
    EXPECT_EQ(order->GetUseCount(), 1);
    EXPECT_STREQ(order->ClassName(), "CORDER");
    EXPECT_NE(ProtocolCast<shop::CINDEXEDACCESS>(order.Get()), nullptr);
}

TEST(CoreExamplesTest, Factory) {
#include "header_examples/COBJECTFACTORY.inc"
    EXPECT_NE(dynamic_cast<shop::CORDER*>(order.Get()), nullptr);
}

TEST(CoreExamplesTest, Holder) {
#include "header_examples/CSHAREOBJECTPTR.inc"
    EXPECT_EQ(second, calendar);
    EXPECT_EQ(second->GetUseCount(), 2);
    EXPECT_TRUE(second->IsOuvre(CDATE::Saturday));
}

TEST(CoreExamplesTest, Singleton) {
#include "header_examples/CSINGLETON.inc"
    EXPECT_NE(CMANAGER::GetInstance(), nullptr);
    EXPECT_EQ(CMANAGER::GetInstance(), CMANAGER::GetInstance());
}

TEST(CoreExamplesTest, Exception) {
    const auto order = shop::CORDER::Create();
    testing::internal::CaptureStderr();
#include "header_examples/FrameworkException.inc"
    const std::string shown = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(shown.starts_with("MLCore failure 151: CORDER has no key 'custmer'")) << shown;
}

namespace checks {

struct CORDER {
    void SetAmount(double amount);
    double mAmount = 0;
};
#include "header_examples/FailureChecks.inc"

}  // namespace checks

TEST(CoreExamplesTest, FailureChecks) {
    checks::CORDER order;
    order.SetAmount(5);
    EXPECT_EQ(support::FailureOf([&] { order.SetAmount(-2.5); }),
              support::Saying(kErrInvalidArgument, "the amount of an order is -2.5, wanted 0 or more"));
    EXPECT_EQ(order.mAmount, 5);
}

}  // namespace
