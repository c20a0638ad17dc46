// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/net/CEMAIL.h>
#include <gtest/gtest.h>

namespace {

using namespace MLCore;

TEST(NetExamplesTest, Email) {
#include "header_examples/CEMAIL.inc"
    EXPECT_EQ(email.IsValid(), 1);
    EXPECT_EQ(email.GetLocalPart(), "\"j@s\".smith");
}

}  // namespace
