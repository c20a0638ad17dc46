#pragma once

#include <MLCore/logging/LogEventType.h>
#include <MLCore/platform/Export.h>

#include <ostream>
#include <string>

namespace MLCore {

/// The registry of log channels, and the one log file of the process. All static.
///
///     CLOGMANAGER::SetLogFile("orders.log");
///     CLOGMANAGERLOGGER log("import");
///     log << "read " << count << " lines" << MLCore::endl;   // 2026-04-30 17:05:09 [import] read 9994 lines
///     CLOGMANAGER::AddEvent("import", LogEventType::INFO);
///
/// A channel is a name; a null name is the channel "". It becomes known when an event of it is counted or it is enabled
/// or disabled by name, and has a flag and a count of each LogEventType.
///
/// The file is opened when it is first needed, for appending; other programs may read it, append to it, rename it and
/// remove it meanwhile. Each line is written as one piece, so that lines of several processes do not mix. Lines end with
/// CR LF on Windows, with LF elsewhere.
///
/// A file that cannot be opened fails once, in the function that wants it open, with the system's code; from then on
/// lines are dropped without a word, until SetLogFile() or Enable(int) has it tried again.
/// What cannot be written (a full disk, a file at its limit) is dropped. A file that is removed or renamed while it is open
/// is written to until it is closed.
///
/// After a fork() of a program with several threads, the child must not log, as with most locks; lines that wait then are
/// written by both. Flush() first.
///
/// Threads may use everything here at once, except for the stream of GetStream(). Each function may throw
/// std::bad_alloc, with nothing changed but that the file may be open by then.
class MLCORE_API CLOGMANAGER {
public:
    /// How much is told: a logger speaks when its level is not above the manager's.
    enum class Level : int { ERR = 0, WAR = 1, INF = 2, DEB = 3 };

    CLOGMANAGER() = delete;

    /// Counts an event of a channel.
    ///
    /// \return the new count; 0, and nothing is counted, when the channel is disabled or `type` is none of the three.
    /// The largest long is not exceeded.
    static long AddEvent(const char* name, LogEventType type);
    /// The events counted; 0 for an unknown channel or type.
    [[nodiscard]] static long GetEventCount(const char* name, LogEventType type);
    /// Sets the three counts of a channel to 0. Unknown channels stay unknown.
    static void ResetEvents(const char* name);

    /// Turns the log output on or off as a whole: off closes the file, on lets it open again when it is needed. Channels
    /// that are not known yet count as `on` from now on. At first it is on.
    static void Enable(int on);
    /// Enables or disables a channel. Enabling one that was not opens the log output; disabling one that was known and
    /// enabled closes it, and the next line of another channel opens it again.
    ///
    /// \throws FrameworkException  the file cannot be opened; the channel stays what it was.
    static void Enable(const char* name, int on);
    /// Takes the user's settings under the key `key` + `\Log` (platform/Preferences.h tells where that is: the registry
    /// on Windows, a file on Linux): `Enable`, a number for Enable(int), and `Level`, a number from 0 to 3 for SetLevel().
    ///
    /// \param on   for Enable(int) when there is no such setting.
    /// \param key  null for `MLCore`.
    static void EnableFromPref(int on, const char* key);
    /// 1 when the log output is on, else 0.
    [[nodiscard]] static int IsEnable();
    /// 1 when the channel is enabled, else 0. An unknown one is, unless Enable(0) was called.
    [[nodiscard]] static int IsEnable(const char* name);

    /// Logs to this file from now on; a relative path is one of the current folder. Null brings back the usual one: beside
    /// the program, with ".out" for its extension.
    static void SetLogFile(const char* path);
    /// The level INF at first.
    static void SetLevel(Level level) noexcept;
    [[nodiscard]] static Level GetLevel() noexcept;

    /// By default each line is handed to the system at once. Off, lines wait until they make 64 KiB, Flush() is called,
    /// or the program ends: several times as fast, and what waits is lost when the program crashes. Lines stay whole.
    static void SetAutoFlush(int on);
    /// Hands what waits to the system.
    static void Flush();

    /// The stream that writes to the log file, which is opened for it; what is inserted while no file is open
    /// goes nowhere, until GetStream() or the next line of a logger opens it again. It lives as long as the process. It is
    /// written when it is flushed, and before the next line of a logger, which begins a line of its own. Threads must not
    /// use it while others log.
    ///
    /// \throws FrameworkException  the file cannot be opened, once.
    [[nodiscard]] static std::ostream& GetStream();

protected:
    friend class CLOGGERBASE;
    friend struct CLOGMANAGERPOLICY;

    /// Another number at each call, from 1.
    [[nodiscard]] static long GetLoggerId() noexcept;

private:
    static void WriteLine(const std::string& name, const std::string& text);
};

/// Writes "ERR", "WAR", "INF" or "DEB", or the number of any other value.
MLCORE_API std::ostream& operator<<(std::ostream& out, CLOGMANAGER::Level level);

}  // namespace MLCore
