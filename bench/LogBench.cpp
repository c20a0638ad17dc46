// A million short lines to a log file, beside what others would log with. Everybody writes the same line, its date and
// time made anew when the second changes; the lines are counted afterwards.

#include <MLCore/logging/CLOGGERBASIC.h>
#include <MLCore/logging/CLOGMANAGER.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>
#if defined(MLCORE_HAVE_SPDLOG)
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#endif

#include "support/ScratchFile.h"
#include "support/Workload.h"

namespace {

using MLCore::CLOGMANAGER;

constexpr int kLines = 1000000;

struct MESSAGE {
    int lines;
    int orders;
    double total;
};
MESSAGE MessageAt(int i) { return {i, i % 977, i * 0.37}; }

class TIMESTAMP {
public:
    const char* Now() {
        const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
        if (now != mSecond) {
            mSecond = now;
            std::strftime(mText.data(), mText.size(), "%Y-%m-%d %H:%M:%S", std::localtime(&now));
        }
        return mText.data();
    }

private:
    std::time_t mSecond = 0;
    std::array<char, 32> mText = {};
};

std::int64_t CountLines(const char* path) {
    std::ifstream in(path, std::ios::binary);
    return std::count(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>(), '\n');
}

void LogOurs(const char* path, bool isFlushed) {
    CLOGMANAGER::SetLogFile(path);
    CLOGMANAGER::SetAutoFlush(isFlushed ? 1 : 0);
    MLCore::CLOGMANAGERLOGGER log("import");
    for (int i = 0; i < kLines; ++i) {
        const MESSAGE message = MessageAt(i);
        log << "read " << message.lines << " lines of " << message.orders << " orders, total " << message.total
            << MLCore::endl;
    }
    CLOGMANAGER::SetLogFile(nullptr);
}

void LogByPrintf(const char* path, bool isFlushed) {
    std::FILE* const out = std::fopen(path, "a");
    TIMESTAMP timestamp;
    for (int i = 0; i < kLines; ++i) {
        const MESSAGE message = MessageAt(i);
        std::fprintf(out, "%s [%s] read %d lines of %d orders, total %g\n", timestamp.Now(), "import", message.lines,
                     message.orders, message.total);
        if (isFlushed) {
            std::fflush(out);
        }
    }
    std::fclose(out);
}

void LogByStream(const char* path, bool isFlushed) {
    std::ofstream out(path, std::ios::app);
    TIMESTAMP timestamp;
    for (int i = 0; i < kLines; ++i) {
        const MESSAGE message = MessageAt(i);
        out << timestamp.Now() << " [import] read " << message.lines << " lines of " << message.orders
            << " orders, total " << message.total << '\n';
        if (isFlushed) {
            out.flush();
        }
    }
}

#if defined(MLCORE_HAVE_SPDLOG)
void LogBySpdlog(const char* path, bool isFlushed) {
    spdlog::logger log("import", std::make_shared<spdlog::sinks::basic_file_sink_mt>(path));
    log.set_pattern("%Y-%m-%d %H:%M:%S [%n] %v");
    log.flush_on(isFlushed ? spdlog::level::info : spdlog::level::off);
    for (int i = 0; i < kLines; ++i) {
        const MESSAGE message = MessageAt(i);
        log.info("read {} lines of {} orders, total {:g}", message.lines, message.orders, message.total);
    }
}
#endif

// At least this has to be done: the numbers formatted by the fastest means into memory, written in large pieces.
void LogByHand(const char* path, bool isFlushed) {
    std::FILE* const out = std::fopen(path, "a");
    std::setvbuf(out, nullptr, isFlushed ? _IONBF : _IOFBF, 65536);
    TIMESTAMP timestamp;
    std::array<char, 200> line;
    for (int i = 0; i < kLines; ++i) {
        const MESSAGE message = MessageAt(i);
        char* const limit = line.data() + line.size();
        char* to = line.data();
        const auto append = [&to](std::string_view text) { to += text.copy(to, text.size()); };
        append(timestamp.Now());
        append(" [import] read ");
        to = std::to_chars(to, limit, message.lines).ptr;
        append(" lines of ");
        to = std::to_chars(to, limit, message.orders).ptr;
        append(" orders, total ");
        to = std::to_chars(to, limit, message.total, std::chars_format::general, 6).ptr;
        append("\n");
        std::fwrite(line.data(), 1, static_cast<std::size_t>(to - line.data()), out);
    }
    std::fclose(out);
}

struct LOGGER {
    const char* who;
    void (*log)(const char*, bool);
};
constexpr LOGGER kLoggers[] = {{"MLCore", LogOurs},
                               {"fprintf", LogByPrintf},
                               {"std::ofstream", LogByStream},
#if defined(MLCORE_HAVE_SPDLOG)
                               {"spdlog", LogBySpdlog},
#endif
                               {"limit: std::to_chars, fwrite", LogByHand}};

}  // namespace

int main(int argc, char** argv) {
    const bench::SCRATCHFILE file("MLCore.bench.log");
    for (const bool isFlushed : {false, true}) {
        const char* const name = isFlushed ? "log lines, each handed to the system" : "log lines";
        std::vector<std::int64_t> lines = {kLines};
        bench::WORKLOAD workload(name, 1, nullptr, kLines);
        for (const auto& [who, log] : kLoggers) {
            // Everybody gives as many bytes.
            workload.Add(who, [&file, isFlushed, log = log](std::size_t) {
                file.Remove();
                log(file.GetPath(), isFlushed);
                return file.GetSize();
            });
            bench::CheckResult(name, who, 0, CountLines(file.GetPath()), lines);
        }
    }
    return bench::Run(argc, argv);
}
