#include <MLCore/logging/CLOGGERBASIC.h>
#include <MLCore/logging/CLOGMANAGER.h>
#include <MLCore/logging/detail/LogFileName.h>
#include <MLCore/platform/File.h>
#include <MLCore/platform/LocalZone.h>
#include <MLCore/platform/ProcessInfo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <regex>

#if !defined(_WIN32)
#include <sys/resource.h>

#include <csignal>
#endif

#include "LogSupport.h"
#include "support/Environment.h"
#include "support/Failure.h"
#include "support/Threads.h"

namespace {

using namespace MLCore;
using support::FailureOf;
using support::LOGFILE;
using Level = CLOGMANAGER::Level;
using Lines = std::vector<std::string>;

// The file that the program logs to by itself.
struct PROGRAMLOG {
    PROGRAMLOG() { Restart(); }
    ~PROGRAMLOG() { Restart(); }
    PROGRAMLOG(const PROGRAMLOG&) = delete;
    PROGRAMLOG& operator=(const PROGRAMLOG&) = delete;

    void Restart() const {
        CLOGMANAGER::SetLogFile(nullptr);
        std::filesystem::remove(path);
    }
    const std::string path = std::filesystem::path(platform::ExecutablePath()).replace_extension(".out").string();
};

TEST(LogManager, CountsEventsOfEnabledChannels) {
    const LOGFILE file;
    EXPECT_EQ(CLOGMANAGER::GetEventCount("events", LogEventType::INFO), 0);
    EXPECT_EQ(CLOGMANAGER::AddEvent("events", LogEventType::INFO), 1);
    EXPECT_EQ(CLOGMANAGER::AddEvent("events", LogEventType::INFO), 2);
    EXPECT_EQ(CLOGMANAGER::AddEvent("events", LogEventType::ERREUR), 1);
    EXPECT_EQ(CLOGMANAGER::AddEvent("events", static_cast<LogEventType>(3)), 0);
    EXPECT_EQ(CLOGMANAGER::AddEvent("events", static_cast<LogEventType>(-1)), 0);
    EXPECT_EQ(CLOGMANAGER::GetEventCount("events", LogEventType::INFO), 2);
    EXPECT_EQ(CLOGMANAGER::GetEventCount("events", LogEventType::ALERTE), 0);

    CLOGMANAGER::Enable("events", 0);
    EXPECT_EQ(CLOGMANAGER::AddEvent("events", LogEventType::INFO), 0);
    EXPECT_EQ(CLOGMANAGER::GetEventCount("events", LogEventType::INFO), 2);
    CLOGMANAGER::ResetEvents("events");
    CLOGMANAGER::ResetEvents("never seen");
    EXPECT_EQ(CLOGMANAGER::GetEventCount("events", LogEventType::INFO), 0);
    EXPECT_EQ(CLOGMANAGER::IsEnable("events"), 0) << "a reset leaves the flag";

    EXPECT_EQ(CLOGMANAGER::AddEvent(nullptr, LogEventType::ALERTE), 1) << "null is the channel without a name";
    EXPECT_EQ(CLOGMANAGER::GetEventCount("", LogEventType::ALERTE), 1);
}

TEST(LogManager, AnswersForUnknownChannelsAsForAll) {
    const LOGFILE file;
    EXPECT_EQ(CLOGMANAGER::IsEnable(), 1);
    EXPECT_EQ(CLOGMANAGER::IsEnable("unknown"), 1);
    CLOGMANAGER::Enable("known", 2);
    CLOGMANAGER::Enable(0);
    EXPECT_EQ(CLOGMANAGER::IsEnable(), 0);
    EXPECT_EQ(CLOGMANAGER::IsEnable("unknown"), 0);
    EXPECT_EQ(CLOGMANAGER::IsEnable("known"), 1);
    EXPECT_EQ(CLOGMANAGER::AddEvent("unknown", LogEventType::INFO), 0);
    CLOGMANAGERPOLICY::Write("known", "nowhere");
    CLOGMANAGER::GetStream() << "nowhere" << std::flush;
    CLOGMANAGER::Enable(1);
    EXPECT_EQ(CLOGMANAGER::IsEnable("unknown"), 1);
    EXPECT_EQ(file.GetContent(), "");
}

TEST(LogManager, NamesItsFileAfterTheProgram) {
    const std::map<std::string, std::string> names = {{"C:\\App\\prog.exe", "C:\\App\\prog.out"},
                                                      {"/opt/my.app/prog", "/opt/my.app/prog.out"},
                                                      {"/opt/prog.1.2", "/opt/prog.1.out"},
                                                      {"C:\\my.app\\prog", "C:\\my.app\\prog.out"},
                                                      {"prog", "prog.out"},
                                                      {"", ""}};
    for (const auto& [program, name] : names) {
        EXPECT_EQ(LogFileName(program), name);
    }
    const PROGRAMLOG file;
    CLOGMANAGERPOLICY::Write("channel", "text");
    EXPECT_EQ(support::LinesOf(file.path), Lines{"[channel] text"});
}

TEST(LogManager, WritesDatedLinesBehindWhatIsThere) {
    const LOGFILE file;
    file.SetContent("before\n");
    CLOGMANAGERPOLICY::Write("import", "a line");
    CLOGMANAGER::GetStream() << "raw " << 1 << std::endl;
    CLOGMANAGERPOLICY::Write("", "");
    const std::regex form(
        "before\n\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\[import\\] a line\nraw 1\n.{19} \\[\\] \n");
    EXPECT_TRUE(std::regex_match(file.GetText(), form)) << file.GetText();
    EXPECT_EQ(file.GetContent().find(platform::kLineEnd, 7), file.GetContent().find("a line") + 6);
    const platform::CIVILTIME now = platform::LocalNow();
    EXPECT_EQ(file.GetText().substr(7, 4), std::to_string(now.year));
}

TEST(LogManager, ReopensAfterAChannelIsDisabled) {
    const LOGFILE first;
    CLOGMANAGER::Enable("one", 1);
    EXPECT_TRUE(std::filesystem::exists(first.path)) << "enabling a channel opens the file";
    CLOGMANAGERPOLICY::Write("one", "1");
    CLOGMANAGER::Enable("one", 0);
    CLOGMANAGERPOLICY::Write("two", "2");
    CLOGMANAGER::Enable("one", 0);
    CLOGMANAGER::SetAutoFlush(0);
    CLOGMANAGERPOLICY::Write("two", "3");
    EXPECT_EQ(first.GetLines(), (Lines{"[one] 1", "[two] 2"}));
    CLOGMANAGER::Flush();
    EXPECT_EQ(first.GetLines().size(), 3U);
    CLOGMANAGERPOLICY::Write("two", "4");
    const LOGFILE second;
    CLOGMANAGERPOLICY::Write("two", std::string(100000, 'x'));
    CLOGMANAGER::SetAutoFlush(1);
    EXPECT_EQ(first.GetLines(), (Lines{"[one] 1", "[two] 2", "[two] 3", "[two] 4"}));
    EXPECT_EQ(second.GetLines(), (Lines{"[two] " + std::string(100000, 'x')}));
}

TEST(LogManager, FailsOnceWithoutAFile) {
#if defined(_WIN32)
    constexpr int kPathNotFound = -3003;
#else
    constexpr int kPathNotFound = -3002;
#endif
    const LOGFILE restored;
    const std::string path = restored.path + "/no/folder";
    CLOGMANAGER::SetLogFile(path.c_str());
    EXPECT_EQ(FailureOf([] { CLOGMANAGER::Enable("failing", 1); }),
              support::Saying(kPathNotFound, "cannot open the log file '", path.substr(0, 20), ": "));
    EXPECT_NO_THROW(CLOGMANAGERPOLICY::Write("failing", "dropped"));
    EXPECT_NO_THROW(static_cast<void>(CLOGMANAGER::GetStream() << "dropped" << std::endl));
    CLOGMANAGER::SetLogFile(path.c_str());
    CLOGMANAGERLOGGER log("failing");
    EXPECT_THROW(log << "lost" << MLCore::endl, FrameworkException);
    EXPECT_NO_THROW(log << "dropped" << MLCore::endl);
    CLOGMANAGER::SetLogFile(restored.path.c_str());
    log << "written" << MLCore::endl;
    EXPECT_EQ(restored.GetLines(), (Lines{"[failing] written"}));
}

TEST(LogManager, BeginsLinesOfTheirOwn) {
    const LOGFILE file;
    CLOGMANAGER::GetStream() << "half";
    CLOGMANAGERPOLICY::Write("two", "whole");
    EXPECT_EQ(file.GetLines(), (Lines{"half", "[two] whole"}));
}

TEST(LogManager, FindsItsFileFromAnotherFolder) {
    const LOGFILE file;
    const std::filesystem::path folder = std::filesystem::current_path();
    const std::filesystem::path path = file.path;
    std::filesystem::current_path(path.parent_path());
    CLOGMANAGER::SetLogFile(path.filename().string().c_str());
    std::filesystem::current_path(folder);
    CLOGMANAGERPOLICY::Write("there", "1");
    EXPECT_EQ(file.GetLines(), Lines{"[there] 1"});
    // and no other when that folder is gone
    const std::filesystem::path gone = path.parent_path() / "gone";
    std::filesystem::create_directory(gone);
    std::filesystem::current_path(gone);
    CLOGMANAGER::SetLogFile("sub.log");
    std::filesystem::current_path(path.parent_path());
    std::filesystem::remove(gone);
    EXPECT_NE(FailureOf([] { CLOGMANAGERPOLICY::Write("gone", "2"); }), 0);
    EXPECT_FALSE(std::filesystem::exists("sub.log"));
    std::filesystem::current_path(folder);
}

#if !defined(_WIN32)
TEST(LogManager, GoesOnWhenTheDiskIsFullOrTheFileGone) {
    const LOGFILE file;
    CLOGMANAGER::SetLogFile("/dev/full");
    CLOGMANAGERPOLICY::Write("disk", "dropped");
    std::ostream& stream = CLOGMANAGER::GetStream();
    EXPECT_FALSE(stream << "dropped" << std::flush);
    EXPECT_TRUE(CLOGMANAGER::GetStream()) << "asked for again, the stream works again";
    CLOGMANAGER::SetLogFile(file.path.c_str());
    CLOGMANAGERPOLICY::Write("disk", "1");
    file.Remove();
    CLOGMANAGERPOLICY::Write("disk", "2");
    CLOGMANAGER::Enable(0);
    CLOGMANAGER::Enable(1);
    CLOGMANAGERPOLICY::Write("disk", "3");
    EXPECT_EQ(file.GetLines(), (Lines{"[disk] 3"}));
}

TEST(LogManager, KeepsLinesWholeWhenTheDiskIsFullForAWhile) {
    const LOGFILE file;
    CLOGMANAGERPOLICY::Write("p", "one");
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tight = {40, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    CLOGMANAGERPOLICY::Write("p", "two");
    setrlimit(RLIMIT_FSIZE, &limit);
    CLOGMANAGERPOLICY::Write("p", "three");
    const Lines lines = file.GetLines();
    ASSERT_EQ(lines.size(), 3U) << file.GetText();
    EXPECT_EQ(lines[2], "[p] three");
}

TEST(LogManager, TakesThePreferencesOfTheUser) {
    const LOGFILE file;
    const std::filesystem::path folder = file.path + ".d";
    std::filesystem::create_directory(folder);
    const support::ENVIRONMENT home("XDG_CONFIG_HOME", folder.string().c_str());
    std::ofstream(folder / "MLCore.ini") << "[Log]\nEnable = 0\nLevel = 3\n";
    std::ofstream(folder / "Orders.ini") << "[Log]\nLevel = 4\n";
    CLOGMANAGER::EnableFromPref(1, nullptr);
    EXPECT_EQ(CLOGMANAGER::IsEnable(), 0);
    EXPECT_EQ(CLOGMANAGER::GetLevel(), Level::DEB);
    CLOGMANAGER::EnableFromPref(1, "Orders");
    EXPECT_EQ(CLOGMANAGER::IsEnable(), 1);
    EXPECT_EQ(CLOGMANAGER::GetLevel(), Level::DEB) << "there is no level 4";
    CLOGMANAGER::EnableFromPref(0, "None");
    EXPECT_EQ(CLOGMANAGER::IsEnable(), 0);
    std::filesystem::remove_all(folder);
}
#endif

TEST(LogManager, KeepsCountsAndLinesOfThreads) {
    constexpr int kThreads = 4;
    constexpr int kEvents = 500;
    const LOGFILE file;
    support::RunTogether(kThreads, [](int thread) {
        const std::string own = "thread" + std::to_string(thread);
        CLOGMANAGERLOGGER log(own.c_str());
        for (int i = 0; i < kEvents; ++i) {
            CLOGMANAGER::AddEvent("shared", LogEventType::INFO);
            CLOGMANAGER::SetLevel(i % 2 == 0 ? Level::INF : Level::DEB);
            CLOGMANAGER::Enable("other", i % 2);
            log << own << ' ' << i << MLCore::endl;
        }
    });
    EXPECT_EQ(CLOGMANAGER::GetEventCount("shared", LogEventType::INFO), kThreads * kEvents);
    std::map<std::string, int> next;
    for (const std::string& line : file.GetLines()) {
        const std::string own = line.substr(line.find("] ") + 2, 7);
        EXPECT_EQ(line, "[" + own + "] " + own + " " + std::to_string(next[own]++));
    }
    EXPECT_EQ(next.size(), std::size_t{kThreads});
    EXPECT_EQ(next["thread0"], kEvents);
}

// What the test below starts: this program again, for this alone.
constexpr int kLinesOfProcess = 2000;
TEST(LogManager, DISABLED_Process) {
    for (int i = 0; i < kLinesOfProcess; ++i) {
        CLOGMANAGER::SetAutoFlush(i / 100 % 2);
        CLOGMANAGERPOLICY::Write("process", std::string(static_cast<std::size_t>(i % 200), 'x') + "end");
    }
}

TEST(LogManager, KeepsLinesOfEightProcessesWhole) {
    constexpr int kProcesses = 8;
    const PROGRAMLOG file;
    const std::string command = platform::ExecutablePath() +
                                " --gtest_also_run_disabled_tests --gtest_filter=LogManager.DISABLED_Process" +
                                " --gtest_brief=1";
    support::RunTogether(kProcesses, [&command](int) { EXPECT_EQ(std::system(command.c_str()), 0); });
    std::map<std::string, int> counts;
    for (const std::string& line : support::LinesOf(file.path)) {
        ++counts[line];
    }
    EXPECT_EQ(counts.size(), 200U);
    for (const auto& [line, count] : counts) {
        EXPECT_EQ(count, kProcesses * kLinesOfProcess / 200) << line;
    }
}

}  // namespace
