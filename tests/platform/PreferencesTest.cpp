#include <MLCore/platform/Preferences.h>
#include <MLCore/platform/WinTypes.h>
#include <gtest/gtest.h>
#include <support/Environment.h>

#include <filesystem>
#include <fstream>
#include <string>

#if !defined(_WIN32)
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

using namespace MLCore::platform;

#if defined(_WIN32)

/// Keeps settings in the user's registry while it lives.
class PreferencesTest : public testing::Test {
protected:
    void SetUp() override {
        DeleteAll();
        SetText("Log", "Name", "some text");
        SetText("Log", "Number", "42");
        SetText("Log", "Negative", "-7");
        SetText("Log", "NoNumber", "12x");
        SetText("Log", "Large", "2147483648");
        SetText("Log", "Empty", "");
        SetText("Log", "Long", std::string(5000, 'x'));
        SetText("Other", "Name", "another text");
        const DWORD number = 0xFFFFFFFE;
        RegSetKeyValueA(HKEY_CURRENT_USER, "Software\\MLCorePreferencesTest\\Log", "Dword", REG_DWORD, &number, 4);
    }
    void TearDown() override { DeleteAll(); }

private:
    static void DeleteAll() { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\MLCorePreferencesTest"); }
    static void SetText(const std::string& section, const char* name, const std::string& text) {
        const std::string key = "Software\\MLCorePreferencesTest\\" + section;
        const DWORD size = static_cast<DWORD>(text.size() + 1);
        RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), name, REG_SZ, text.c_str(), size);
    }
};

TEST_F(PreferencesTest, ADwordIsASignedNumber) {
    EXPECT_EQ(ReadPreferenceNumber("MLCorePreferencesTest\\Log", "Dword"), -2);
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest\\Log", "Dword"), "-2");
}

#else

/// Keeps settings in a folder of its own while it lives.
class PreferencesTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(mFolder);
        std::ofstream file(mFolder / "MLCorePreferencesTest.ini");
        file << "outside = of sections\r\n"
                "; Name = in a comment\n"
                "# [Log]\n"
                "[Other]\nName = another text\n"
                "[ log ]\n"
                "this line means nothing\n"
                "  Name\t=  some text  \r\n"
                "Name = a later one\n"
                "Number=42\nNegative = -7\nNoNumber = 12x\nLarge = 2147483648\nEmpty =\nPlus = +5\nBothSigns = +-5\n"
                "Equation = a = b ; c\n"
             << "Long = " << std::string(5000, 'x');
    }
    void TearDown() override { std::filesystem::remove_all(mFolder); }

    const std::filesystem::path mFolder =
        std::filesystem::temp_directory_path() / ("MLCorePreferencesTest." + std::to_string(getpid()));
    const support::ENVIRONMENT mSettings{"XDG_CONFIG_HOME", mFolder};
};

TEST_F(PreferencesTest, LinesOfTheFile) {
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest", "outside"), "of sections");
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest", "Name"), std::nullopt);
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest\\Log", "Equation"), "a = b ; c");
    EXPECT_EQ(ReadPreferenceNumber("MLCorePreferencesTest\\Log", "Plus"), 5);
    EXPECT_EQ(ReadPreferenceNumber("MLCorePreferencesTest\\Log", "BothSigns"), std::nullopt);
    const support::ENVIRONMENT relative("XDG_CONFIG_HOME", std::filesystem::relative(mFolder));
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest\\Log", "Name"), std::nullopt) << "it must be absolute";
}

TEST_F(PreferencesTest, OnlyPlainFilesOfASensibleSize) {
    const std::string content = "[Log]\nName = here\n";
    std::ofstream(mFolder / "Marked.ini") << "\xEF\xBB\xBF" << content;
    std::ofstream(mFolder / "Large.ini") << content << std::string(1024 * 1024, '\n');
    std::filesystem::create_symlink("/dev/zero", mFolder / "Endless.ini");
    EXPECT_EQ(mkfifo((mFolder / "Pipe.ini").c_str(), 0600), 0);
    EXPECT_EQ(ReadPreferenceText("Marked\\Log", "Name"), "here");
    for (const char* const key : {"Large\\Log", "Endless\\Log", "Pipe\\Log"}) {
        EXPECT_EQ(ReadPreferenceText(key, "Name"), std::nullopt) << key;
    }
}

#endif

TEST_F(PreferencesTest, TextsAndNumbers) {
    const char* const key = "MLCorePreferencesTest\\Log";
    EXPECT_EQ(ReadPreferenceText(key, "Name"), "some text");
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest\\LOG", "nAME"), "some text");
    EXPECT_EQ(ReadPreferenceText("MLCorePreferencesTest\\Other", "Name"), "another text");
    EXPECT_EQ(ReadPreferenceText(key, "Number"), "42");
    EXPECT_EQ(ReadPreferenceText(key, "Empty"), "");
    EXPECT_EQ(ReadPreferenceText(key, "Long"), std::string(5000, 'x'));
    EXPECT_EQ(ReadPreferenceNumber(key, "Number"), 42);
    EXPECT_EQ(ReadPreferenceNumber(key, "Negative"), -7);
    for (const char* const name : {"Name", "NoNumber", "Large", "Empty", "Missing"}) {
        EXPECT_EQ(ReadPreferenceNumber(key, name), std::nullopt) << name;
    }
    // what is missing or malformed
    for (const char* const text : {static_cast<const char*>(nullptr), "", "\\Log", "../x", "a/b", "a\nb", "Missing",
                                   "MLCorePreferencesTest\\Missing", "MLCoreNoSuchKey\\Log"}) {
        EXPECT_EQ(ReadPreferenceText(text, "Name"), std::nullopt);
        EXPECT_EQ(ReadPreferenceText(key, text), std::nullopt);
    }
}

}  // namespace
