#include <MLCore/platform/ModuleResources.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using namespace MLCore::platform;

const int kAnchor = 0;

[[maybe_unused]] std::string TextOf(HINSTANCE module, HRSRC resource) {
    const void* const data = LockModuleResource(LoadModuleResource(module, resource));
    const std::size_t size = ModuleResourceSize(module, resource);
    return data != nullptr ? std::string(static_cast<const char*>(data), size) : "no data";
}

[[maybe_unused]] const char* NumberAsName(std::uintptr_t number) { return reinterpret_cast<const char*>(number); }

TEST(ModuleResourcesTest, WhatIsMissingIsNull) {
    for (const char* name : {"NOWHERE", "#9999", "#", "#99999999999999999999", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(FindModuleResource(nullptr, name, 10), nullptr);
    }
    EXPECT_EQ(LoadModuleResource(nullptr, nullptr), nullptr);
    EXPECT_EQ(LockModuleResource(nullptr), nullptr);
    EXPECT_EQ(ModuleResourceSize(nullptr, nullptr), 0U);
}

TEST(ModuleResourcesTest, ModulesAreToldApart) {
    ASSERT_NE(ModuleOf(&kAnchor), nullptr);
    int local = 0;
    EXPECT_EQ(ModuleOf(&local), nullptr) << "a stack belongs to no module";
    EXPECT_EQ(ModuleOf(nullptr), nullptr);
}

#if defined(MLCORE_TEST_RESOURCES)
// Put into the test program by the build: greeting.txt as GREETING of type 10 and as #123 of type 300, empty.txt as
// EMPTY.
TEST(ModuleResourcesTest, FilesAreFoundByNameAndType) {
    for (const HINSTANCE module : {HINSTANCE{nullptr}, ModuleOf(&kAnchor)}) {
        for (const HRSRC resource :
             {FindModuleResource(module, "GREETING", 10), FindModuleResource(module, "greeting", 10),
              FindModuleResource(module, "#123", 300), FindModuleResource(module, NumberAsName(123), 300)}) {
            EXPECT_EQ(TextOf(module, resource), "Bonjour, caf\xE9\n");
        }
        EXPECT_EQ(FindModuleResource(module, "GREETING", 300), nullptr);
        EXPECT_EQ(FindModuleResource(module, "#123", 10), nullptr);
        EXPECT_EQ(FindModuleResource(module, "123", 300), nullptr);
        EXPECT_EQ(FindModuleResource(module, "GREETING2", 10), nullptr);
    }
    EXPECT_EQ(FindModuleResource(nullptr, "EMPTY", 10), nullptr) << "an empty file is no resource";
}
#endif

#if !defined(_WIN32)

const char kData[] = "some bytes";

TEST(ModuleResourcesTest, ARegistrationLivesAsLongAsItsObject) {
    HRSRC resource = nullptr;
    {
        const RESOURCEREGISTRATION named("Some.Name", 10, kData, 4);
        const RESOURCEREGISTRATION numbered("#007", 10, kData + 5, 5);
        resource = FindModuleResource(nullptr, "SOME.NAME", 10);
        EXPECT_EQ(TextOf(nullptr, resource), "some");
        EXPECT_EQ(TextOf(nullptr, FindModuleResource(nullptr, "#7", 10)), "bytes");
        EXPECT_EQ(TextOf(nullptr, FindModuleResource(nullptr, NumberAsName(7), 10)), "bytes");
        const HINSTANCE library = ModuleOf(reinterpret_cast<const void*>(&FindModuleResource));
        if (library != ModuleOf(&kAnchor)) {
            EXPECT_EQ(FindModuleResource(library, "SOME.NAME", 10), nullptr);
            EXPECT_EQ(LoadModuleResource(library, resource), nullptr);
        }
    }
    EXPECT_EQ(FindModuleResource(nullptr, "SOME.NAME", 10), nullptr);
    EXPECT_EQ(LoadModuleResource(nullptr, resource), nullptr);
    EXPECT_EQ(ModuleResourceSize(nullptr, resource), 0U);
}

#endif

}  // namespace
