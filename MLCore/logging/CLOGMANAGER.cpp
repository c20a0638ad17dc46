#include <MLCore/logging/CLOGMANAGER.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/logging/detail/LogFileName.h>
#include <MLCore/logging/detail/LogOutput.h>
#include <MLCore/platform/File.h>
#include <MLCore/platform/LocalZone.h>
#include <MLCore/platform/Preferences.h>
#include <MLCore/platform/ProcessInfo.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <limits>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

namespace MLCore {

namespace {

constexpr std::array<const char*, 3> kEventNames = {"INFO", "ALERTE", "ERREUR"};
constexpr std::array<const char*, 4> kLevelNames = {"ERR", "WAR", "INF", "DEB"};

template <std::size_t count>
std::ostream& WriteName(std::ostream& out, const std::array<const char*, count>& names, int number) {
    return number >= 0 && static_cast<std::size_t>(number) < count ? out << names[static_cast<std::size_t>(number)]
                                                                   : out << number;
}

/// The local date and time as lines begin with it, made anew when the second changes.
class TIMESTAMP {
public:
    std::string_view Now() noexcept {
        const std::time_t second = std::time(nullptr);
        if (second != mSecond) {
            mSecond = second;
            const platform::CIVILTIME now = platform::LocalNow();
            const int length = std::snprintf(mText.data(), mText.size(), "%04d-%02d-%02d %02d:%02d:%02d", now.year,
                                             now.month, now.day, now.hour, now.minute, now.second);
            mLength = static_cast<std::size_t>(length);
        }
        return {mText.data(), mLength};
    }

private:
    std::time_t mSecond = std::numeric_limits<std::time_t>::min();
    std::array<char, 80> mText = {};
    std::size_t mLength = 0;
};

struct CHANNEL {
    std::array<long, kEventNames.size()> counts = {};
    int isEnabled = 1;
};

/// All that the lock guards.
class LOGSTATE {
    LOGOUTPUT mOutput;  // made before the stream that writes to it

public:
    std::mutex lock;
    std::map<std::string, CHANNEL, std::less<>> channels;
    int isEnabled = 1;
    int isUnknownEnabled = 1;
    bool isAutoFlush = true;
    std::ostream stream{&mOutput};

    [[nodiscard]] CHANNEL* Find(const char* name) {
        const auto found = channels.find(Key(name));
        return found == channels.end() ? nullptr : &found->second;
    }
    CHANNEL& Insert(const char* name, int on) {
        return channels.try_emplace(std::string(Key(name)), CHANNEL{{}, on}).first->second;
    }
    [[nodiscard]] int IsChannelEnabled(const CHANNEL* channel) const noexcept {
        return channel != nullptr ? channel->isEnabled : isUnknownEnabled;
    }

    /// Fails at the first attempt at most.
    void Open() {
        if (isEnabled == 0 || mOutput.IsOpen() || mHasFailed) {
            return;
        }
        const std::string path = mPath ? *mPath : LogFileName(platform::ExecutablePath());
        // As it was given, too: the whole path may lead through folders that the program may not see.
        const bool isGivenSame = mGivenPath && platform::AbsolutePath(mGivenPath->c_str()) == path;
        mHasFailed = !mOutput.Open(path.c_str()) && (!isGivenSame || !mOutput.Open(mGivenPath->c_str()));
        if (mHasFailed) {
            FailWithLastError("cannot open the log file ", QuotedPath(path));
        }
    }
    void Close() noexcept { mOutput.Close(); }
    void Retry() noexcept { mHasFailed = false; }
    void SetPath(std::optional<std::string> path, std::optional<std::string> given) noexcept {
        Close();
        Retry();
        mOutput.Forget();
        mPath = std::move(path);
        mGivenPath = std::move(given);
    }

    void WriteLine(std::string_view name, std::string_view text) {
        Open();
        mOutput.AppendLine({mTimestamp.Now(), " [", name, "] ", text, "\n"});
        if (isAutoFlush) {
            mOutput.Flush();
        }
    }
    void Flush() noexcept { mOutput.Flush(); }

private:
    static std::string_view Key(const char* name) noexcept { return name != nullptr ? name : ""; }

    std::optional<std::string> mPath;  // made absolute
    std::optional<std::string> mGivenPath;
    bool mHasFailed = false;
    TIMESTAMP mTimestamp;
};

/// Never destroyed: whatever else is destroyed at the end may still log.
LOGSTATE& State() {
    static LOGSTATE* const state = new LOGSTATE;
    return *state;
}

/// Writes the waiting lines at the end of the program. A thread may log at that time, so the lock is needed, but the
/// wait is limited: Windows may have ended a thread that holds it.
struct LASTFLUSH {
    LASTFLUSH() { State(); }
    ~LASTFLUSH() {
        std::unique_lock guard(State().lock, std::try_to_lock);
        for (int attempts = 1000; !guard && attempts != 0; --attempts) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            guard.try_lock();
        }
        if (guard) {
            State().isAutoFlush = true;
            State().Close();
        }
    }
};
const LASTFLUSH kLastFlush;

std::atomic<CLOGMANAGER::Level> gLevel = CLOGMANAGER::Level::INF;
std::atomic<long> gNextLoggerId = 1;

std::optional<std::size_t> IndexOf(LogEventType type) noexcept {
    const auto index = static_cast<std::size_t>(type);
    return index < kEventNames.size() ? std::optional(index) : std::nullopt;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, LogEventType type) {
    return WriteName(out, kEventNames, static_cast<int>(type));
}

std::ostream& operator<<(std::ostream& out, CLOGMANAGER::Level level) {
    return WriteName(out, kLevelNames, static_cast<int>(level));
}

long CLOGMANAGER::AddEvent(const char* name, LogEventType type) {
    const std::optional<std::size_t> index = IndexOf(type);
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    CHANNEL* channel = state.Find(name);
    if (!index || state.IsChannelEnabled(channel) == 0) {
        return 0;
    }
    if (channel == nullptr) {
        channel = &state.Insert(name, 1);
    }
    long& count = channel->counts[*index];
    if (count < std::numeric_limits<long>::max()) {
        ++count;
    }
    return count;
}

long CLOGMANAGER::GetEventCount(const char* name, LogEventType type) {
    const std::optional<std::size_t> index = IndexOf(type);
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    const CHANNEL* const channel = state.Find(name);
    return channel != nullptr && index ? channel->counts[*index] : 0;
}

void CLOGMANAGER::ResetEvents(const char* name) {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    if (CHANNEL* const channel = state.Find(name)) {
        channel->counts = {};
    }
}

void CLOGMANAGER::Enable(int on) {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    if (on == 0) {
        state.Close();
    }
    state.Retry();
    state.isEnabled = state.isUnknownEnabled = on != 0 ? 1 : 0;
}

void CLOGMANAGER::Enable(const char* name, int on) {
    const int flag = on != 0 ? 1 : 0;
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    CHANNEL* const channel = state.Find(name);
    const bool isChanged = channel == nullptr || channel->isEnabled != flag;
    if (isChanged && flag != 0) {
        state.Open();
    } else if (isChanged && channel != nullptr) {
        state.Close();
    }
    if (channel != nullptr) {
        channel->isEnabled = flag;
    } else {
        state.Insert(name, flag);
    }
}

void CLOGMANAGER::EnableFromPref(int on, const char* key) {
    const std::string logKey = std::string(key != nullptr ? key : "MLCore").append("\\Log");
    const std::optional<std::int32_t> enable = platform::ReadPreferenceNumber(logKey.c_str(), "Enable");
    const std::optional<std::int32_t> level = platform::ReadPreferenceNumber(logKey.c_str(), "Level");
    Enable(enable.value_or(on));
    if (level && *level >= 0 && static_cast<std::size_t>(*level) < kLevelNames.size()) {
        SetLevel(static_cast<Level>(*level));
    }
}

int CLOGMANAGER::IsEnable() {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    return state.isEnabled;
}

int CLOGMANAGER::IsEnable(const char* name) {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    return state.IsChannelEnabled(state.Find(name));
}

void CLOGMANAGER::SetLogFile(const char* path) {
    // Absolute: the file is found again when it is closed and opened, wherever the program is then.
    std::optional<std::string> given;
    std::optional<std::string> absolute;
    if (path != nullptr) {
        given = path;
        absolute = platform::AbsolutePath(path);
    }
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    state.SetPath(std::move(absolute), std::move(given));
}

void CLOGMANAGER::SetLevel(Level level) noexcept { gLevel.store(level, std::memory_order_relaxed); }

CLOGMANAGER::Level CLOGMANAGER::GetLevel() noexcept { return gLevel.load(std::memory_order_relaxed); }

void CLOGMANAGER::SetAutoFlush(int on) {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    state.isAutoFlush = on != 0;
    if (state.isAutoFlush) {
        state.Flush();
    }
}

void CLOGMANAGER::Flush() {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    state.Flush();
}

std::ostream& CLOGMANAGER::GetStream() {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    state.Open();
    state.stream.clear();
    return state.stream;
}

long CLOGMANAGER::GetLoggerId() noexcept { return gNextLoggerId.fetch_add(1, std::memory_order_relaxed); }

void CLOGMANAGER::WriteLine(const std::string& name, const std::string& text) {
    LOGSTATE& state = State();
    const std::lock_guard guard(state.lock);
    state.WriteLine(name, text);
}

}  // namespace MLCore
