// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace MLCore;

TEST(KeysExamplesTest, WriterAndReader) {
    CBUFFERSTREAM buffer;
    buffer.Open();
    {
        CXMLKEYWRITER writer(buffer);
#include "header_examples/CKEYWRITER.inc"
    }
    buffer.Open();
    CXMLKEYREADER reader(buffer);
    std::string key;
#include "header_examples/CKEYREADER.inc"
    EXPECT_EQ(key, "customer.name");
}

}  // namespace
