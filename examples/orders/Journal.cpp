#include "Journal.h"

#include <MLCore/logging/CLOGGERBASIC.h>
#include <MLCore/logging/CLOGMANAGER.h>

#include <algorithm>
#include <vector>

#include "RecordFile.h"

namespace orders {

using namespace MLCore;

namespace {

constexpr const char* kChannel = "orders";

struct KIND {
    LogEventType type;
    CLOGMANAGER::Level level;
};
constexpr KIND kKinds[] = {
    {LogEventType::INFO, CLOGMANAGER::Level::INF},
    {LogEventType::ALERTE, CLOGMANAGER::Level::WAR},
    {LogEventType::ERREUR, CLOGMANAGER::Level::ERR},
};

std::vector<std::string> gWritten;

CLOGMANAGER::Level LevelOf(LogEventType type) { return kKinds[static_cast<int>(type)].level; }

}  // namespace

void StartJournal(const std::string& path) {
    if (path.empty()) {
        CLOGMANAGER::Enable(0);
    }
    CLOGMANAGER::SetLogFile(path.c_str());
    ForFile(path, "written", [] { CLOGMANAGER::Enable(kChannel, 1); });
    if (!path.empty()) {
        AddWritten(path);
    }
}

void LogEvent(LogEventType type, const std::string& text) {
    std::string line = text;
    std::replace_if(
        line.begin(), line.end(), [](unsigned char character) { return character < ' '; }, '?');
    CLOGMANAGER::AddEvent(kChannel, type);
    CLOGMANAGERLOGGER(kChannel, LevelOf(type)) << type << ' ' << line << MLCore::endl;
}

void AddWritten(const std::string& path) { gWritten.push_back(path); }

void WriteClosing(std::ostream& out) {
    const char* separator = "Events: ";
    for (const KIND& kind : kKinds) {
        out << separator << CLOGMANAGER::GetEventCount(kChannel, kind.type) << ' ' << kind.type;
        separator = ", ";
    }
    out << '\n';
    for (const std::string& path : gWritten) {
        out << "Written: " << path << '\n';
    }
}

}  // namespace orders
