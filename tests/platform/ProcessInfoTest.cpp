#include <MLCore/platform/ProcessInfo.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(ProcessInfoTest, PathNamesThisProgram) {
    const std::filesystem::path path = MLCore::platform::ExecutablePath();
    EXPECT_TRUE(path.is_absolute()) << path;
    EXPECT_TRUE(path.has_filename());
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
}

}  // namespace
