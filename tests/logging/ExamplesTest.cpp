// The examples of the folder's headers: see header_examples.cmake.

#include <MLCore/logging/CLOGGERBASIC.h>
#include <gtest/gtest.h>

#include "LogSupport.h"

namespace {

using namespace MLCore;

TEST(LoggingExamplesTest, Logger) {
    const support::LOGFILE file;
    const int number = 7;
#include "header_examples/CLOGGERBASIC.inc"
    EXPECT_EQ(file.GetLines(), (std::vector<std::string>{"[import] line 7: no date"}));
}

TEST(LoggingExamplesTest, Manager) {
    const support::LOGFILE restored;
    const int count = 9994;
    std::filesystem::remove("orders.log");
#include "header_examples/CLOGMANAGER.inc"
    const auto lines = support::LinesOf("orders.log");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0], "[import] read 9994 lines");
    CLOGMANAGER::SetLogFile(nullptr);
    std::filesystem::remove("orders.log");
}

}  // namespace
