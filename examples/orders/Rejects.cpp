#include "Rejects.h"

#include <MLCore/streams/CSTREAMSAVER.h>

#include <algorithm>
#include <filesystem>

#include "Journal.h"
#include "RecordFile.h"

namespace orders {

using namespace MLCore;

namespace {

void Copy(CFILESTREAM& source, const LINE& line, COSTREAM& out) {
    CSTREAMSAVER saver(source);
    source.SetPosition(line.begin);
    unsigned long long left = line.end - line.begin;
    for (long count = 1; left > 0 && count > 0; left -= static_cast<unsigned long long>(count)) {
        char buffer[1024];
        count = source.GetValue(static_cast<void*>(buffer), static_cast<long>(std::min(left, 0ULL + sizeof(buffer))));
        out.SetValue(static_cast<const void*>(buffer), count);
    }
}

}  // namespace

REJECTS::REJECTS(const std::string& path)
    : mPath(path), mFile(path.c_str(), CSTREAM::ReadWrite | CSTREAM::Create | CSTREAM::Truncate) {}

void REJECTS::Add(CFILESTREAM& source, const LINE& first, const LINE& line, const std::string& reason) {
    constexpr long kMostReasons = 20;
    const std::string message = source.GetPath() + ':' + std::to_string(line.number) + ": " + reason;
    LogEvent(LogEventType::ALERTE, message);
    if (++mCount <= kMostReasons) {
        mReasons.push_back(message);
    }
    if (mPath.empty()) {
        return;
    }
    ForFile(mPath, "written", [&] {
        if (mFile.IsOpen() == 0) {
            mFile.Open();
            AddWritten(mPath);
            Copy(source, first, mFile);
        }
        Copy(source, line, mFile);
    });
}

void REJECTS::Close() {
    ForFile(mPath, "written", [this] { mFile.Close(); });
    if (mCount == 0 && std::filesystem::is_regular_file(mPath)) {
        std::filesystem::remove(mPath);
    }
}

void REJECTS::Write(std::ostream& out) const {
    for (const std::string& reason : mReasons) {
        out << reason << '\n';
    }
    if (const long more = mCount - static_cast<long>(mReasons.size()); more > 0) {
        out << more << " more\n";
    }
}

}  // namespace orders
