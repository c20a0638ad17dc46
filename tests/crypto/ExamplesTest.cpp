// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/crypto/CPASSWORD.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

using namespace MLCore;

TEST(CryptoExamplesTest, Password) {
    std::size_t sent = 0;
    const auto Send = [&sent](const char* text) { sent = std::strlen(text); };
#include "header_examples/CPASSWORD.inc"
    EXPECT_EQ(sent, 16);
}

}  // namespace
