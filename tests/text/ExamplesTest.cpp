// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/text/CodePage1252.h>
#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace {

using namespace MLCore;

TEST(TextExamplesTest, CodePage) {
    const std::string fromTheNetwork = "\u00C9l\u00E8ve \u4E2D";
    testing::internal::CaptureStdout();
#include "header_examples/CodePage1252.inc"
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\u00C9l\u00E8ve ?");
    EXPECT_EQ(name, "\xC9l\xE8ve ?");
    EXPECT_EQ(lost, 1);
}

}  // namespace
