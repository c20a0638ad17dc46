// A system that fails: each of its calls in each scenario fails in turn, once or from then on, is interrupted, or reads
// and writes a part only, after which the disk may be full. The first two are told by the code of the failure or go on
// without; the others are not noticed. Nothing is lost or changed by half, and all works when the system does again.
#include <MLCore/MLCore.h>
#include <MLCore/platform/DebugOutput.h>
#include <MLCore/platform/File.h>
#include <MLCore/platform/ModuleResources.h>
#include <MLCore/platform/Preferences.h>
#include <MLCore/platform/ProcessInfo.h>
#include <faults/Faults.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "support/Environment.h"
#include "support/Failure.h"

namespace {

using namespace MLCore;

const char kLine[] = "a line";
const std::string kMuch(70'000, 'm');  // more than a stream's buffer
const platform::RESOURCEREGISTRATION kResource("SEAM", 10, kLine, sizeof kLine - 1);

std::string ContentOf(const char* path) {
    std::ifstream file(path, std::ios_base::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void MakeFile(const char* path, const std::string& content) {
    std::filesystem::remove(path);  // quicker than to empty it
    std::ofstream(path, std::ios_base::binary) << content;
}

/// What scenarios work on: files in the current folder, two of them with bytes that wait in their streams.
struct STATE {
    STATE() {
        for (const char* const path : {"output", "appended", "log", "debug"}) {
            MakeFile(path, "as it was");
        }
        for (CFILESTREAM* const stream : {&input, &output, &appended}) {
            stream->Open();
        }
        output.SetValue(std::string("waits"));
        appended.SetValue(std::string("waits"));
        debugFile = open("debug", O_WRONLY | O_APPEND | O_CLOEXEC);
        CLOGMANAGER::SetLevel(CLOGMANAGER::Level::INF);
        CLOGMANAGER::Enable("another", 0);
    }
    ~STATE() {
        CLOGMANAGER::SetLogFile(nullptr);  // closes it
        close(debugFile);
    }

    std::string Show() const {
        std::ostringstream out;
        password->Lock();
        out << text << ' ' << static_cast<const char*>(*password) << ' ' << CLOGMANAGER::GetLevel()
            << CLOGMANAGER::IsEnable("another");
        password->Unlock();
        out << ' ' << ContentOf("log").ends_with("] a line\n") << ContentOf("debug").ends_with(kLine);
        for (const CFILESTREAM* const stream : {&input, &output, &appended, &fresh}) {
            out << ' ' << stream->IsOpen() << ' ' << stream->GetSize();
        }
        for (const char* const path : {"output", "appended"}) {
            const std::string content = ContentOf(path);
            out << ' ' << content.size() << ' ' << content.find("waits") << ' ' << content.find("new");
        }
        return out.str();
    }

    std::string text = "none";
    CFILESTREAM input{"input"}, output{"output", CSTREAM::ReadWrite}, fresh{"input"};
    CFILESTREAM appended{"appended", CSTREAM::ReadWrite | CSTREAM::Append};
    std::unique_ptr<CPASSWORD> password = CPASSWORD::Create(kLine);
    int debugFile = -1;
};

std::string Read(CISTREAM& stream, long count) {
    std::string text;
    stream.GetValue(text, count);
    return text == kMuch ? "much" : text;
}

void Keep(STATE& state, const std::unique_ptr<CPASSWORD>& password) {
    state.text = std::to_string(password->GetSize());
}

const SCENARIO<STATE> kScenarios[] = {
    {"open a file", [](STATE& state) { state.fresh.Open(); }},
    {"open what is no plain file",
     [](STATE& state) {
         CFILESTREAM device("/dev/null");
         device.Open();
         device.Close();
         state.text = "opened";
     }},
    {"read a file",
     [](STATE& state) {
         state.input.Open();
         state.text = Read(state.input, static_cast<long>(kMuch.size()));
     }},
    {"read what waits to be written",
     [](STATE& state) {
         state.output.Open();
         state.text = Read(state.output, 7);
     },
     LEAVES::Part},
    {"write what waits", [](STATE& state) { state.output.Flush(); }},
    {"append what waits", [](STATE& state) { state.appended.Flush(); }, LEAVES::Part},
    {"write more than waits",
     [](STATE& state) {
         state.output.SetPosition(5);
         state.output.SetValue("new" + kMuch);
         state.output.Flush();
     },
     LEAVES::Part},
    {"resize a file", [](STATE& state) { state.output.SetSize(3); }},
    {"close a file", [](STATE& state) { state.output.Close(); }, LEAVES::Anything},
    {"remove a file",
     [](STATE& state) {
         FailLastError(platform::FileRemove("output") ? 1 : 0);
         state.text = "removed";
     }},
    {"log a line",
     [](STATE&) {
         CLOGMANAGER::SetLogFile("log");
         CLOGGERBASIC<CLOGMANAGERPOLICY>("seams", CLOGMANAGER::Level::ERR) << kLine << MLCore::endl;
     },
     LEAVES::Less},
    {"enable a channel",
     [](STATE&) {
         CLOGMANAGER::SetLogFile("log");
         CLOGMANAGER::Enable("another", 1);
     },
     LEAVES::Less},
    {"a line for the debugger",
     [](STATE& state) {
         static const int kConsole = dup(STDERR_FILENO);
         dup2(state.debugFile, STDERR_FILENO);
         platform::DebugOutput(kLine);
         dup2(kConsole, STDERR_FILENO);
     },
     LEAVES::Less, 0},
    {"read settings", [](STATE&) { CLOGMANAGER::EnableFromPref(1, "Seams"); }, LEAVES::Less, 0},
    {"where the program is",
     [](STATE& state) { state.text = platform::ExecutablePath().empty() ? "none" : "somewhere"; }, LEAVES::Less, 0},
    {"which module it is", [](STATE& state) { state.text = platform::ModuleOf(&kResource) == nullptr ? "none" : "it"; },
     LEAVES::Less, 0},
    {"read a resource",
     [](STATE& state) {
         CRESOURCESTREAM resource(nullptr, "SEAM", 10);
         resource.Open();
         state.text = Read(resource, 6);
     },
     LEAVES::Nothing, kErrNull},
    {"what day it is", [](STATE& state) { state.text = CDATE::Today().IsNull() ? "none" : "today"; }, LEAVES::Less, 0},
    {"a password", [](STATE& state) { Keep(state, CPASSWORD::Create(kLine)); }},
    {"a strong password", [](STATE& state) { Keep(state, CPASSWORD::CreateStrong(20)); }},
    {"a secure password", [](STATE& state) { Keep(state, CPASSWORD::CreateSecure(20)); }},
    {"clone a password", [](STATE& state) { Keep(state, state.password->Clone()); }},
    {"compare passwords",
     [](STATE& state) { state.text = *state.password == *CPASSWORD::Create(kLine) ? "same" : "other"; }},
    {"widen a password",
     [](STATE& state) {
         static_cast<void>(static_cast<const wchar_t*>(*state.password));
         state.password->Lock();
         state.text = std::wcscmp(*state.password, L"a line") == 0 ? "wide" : "none";
         state.password->Unlock();
     },
     LEAVES::Part},
};

/// First, while nobody has asked yet.
TEST(SeamTest, AFirstUseThatFailsIsNotTheLast) {
    const auto failureOf = [](long calls, bool isLasting, void (*act)()) {
        gFaults.kind = FAULTS::Kind::Call;
        gFaults.toGo = calls;
        gFaults.isLasting = isLasting;
        gFaults.isArmed = true;
        const auto failure = support::FailureOf(act);
        gFaults.isArmed = false;
        return failure;
    };
    const auto buffer = [] {
        CBUFFERSTREAM stream;
        stream.Open();
        stream.SetValue(kMuch);
    };
    const auto password = [] { static_cast<void>(CPASSWORD::Create(kLine)); };
    EXPECT_EQ(failureOf(0, true, buffer), 0) << "how much memory there is";
    EXPECT_EQ(failureOf(1, false, password), kIoFailure) << "the key, after the nonce";
    EXPECT_EQ(failureOf(1000, false, password), 0);
}

TEST(SeamTest, FailuresAreToldOrNotNoticed) {
    namespace fs = std::filesystem;
    const fs::path before = fs::current_path();
    const fs::path folder = fs::temp_directory_path() / ("MLCoreSeamTest." + std::to_string(getpid()));
    const support::ENVIRONMENT settings("XDG_CONFIG_HOME", folder.string());
    fs::create_directory(folder);
    fs::current_path(folder);
    MakeFile("input", kMuch);
    MakeFile("Seams.ini", "[Log]\nLevel=3\n");
    long failures = 0;
    for (const SCENARIO<STATE>& scenario : kScenarios) {
        failures += FailInTurn(scenario, {{FAULTS::Kind::Call, false},
                                          {FAULTS::Kind::Call, true},
                                          {FAULTS::Kind::Interruption, false},
                                          {FAULTS::Kind::Cut, false},
                                          {FAULTS::Kind::Cut, true},
                                          {FAULTS::Kind::Memory, false},
                                          {FAULTS::Kind::Memory, true}});
    }
    EXPECT_GT(failures, 250);
    fs::current_path(before);
    fs::remove_all(folder);
}

}  // namespace
