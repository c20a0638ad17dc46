#pragma once

#include <MLCore/logging/LogEventType.h>
#include <MLCore/platform/Export.h>

#include <ostream>
#include <string>

namespace MLCore {

/// The registry of log channels and the log file of the process. All functions are static.
///
///     CLOGMANAGER::SetLogFile("orders.log");
///     CLOGMANAGERLOGGER log("import");
///     log << "read " << count << " lines" << MLCore::endl;   // 2026-04-30 17:05:09 [import] read 9994 lines
///     CLOGMANAGER::AddEvent("import", LogEventType::INFO);
///
/// A channel is identified by a name; a null name means the channel "". A channel becomes known when one of its events
/// is counted, or when it is enabled or disabled by name. It has a flag and a count of each LogEventType.
///
/// The file is opened for appending when it is first needed. Other programs may read it, append to it, rename it and
/// remove it meanwhile. Each line is written in one piece, so that lines of several processes do not mix. Lines end
/// with CR LF on Windows, with LF elsewhere.
///
/// If the file cannot be opened, the function that needs it fails once, with the system's code; the text names the path
/// and the system's reason. From then on lines are dropped silently, until SetLogFile() or Enable(int) lets the file be
/// opened again. Lines that cannot be written (a full disk, a file at its limit) are dropped. A file that is removed or
/// renamed while it is open receives lines until it is closed.
///
/// After a fork() of a program with several threads, the child must not log, as with most locks. Lines that wait at
/// that time are written by both processes: call Flush() before.
///
/// Threads may call everything here concurrently, except the stream of GetStream(). Each function may throw
/// std::bad_alloc and then changes nothing, except that the file may have been opened.
class MLCORE_API CLOGMANAGER {
public:
    /// The importance of lines: a logger writes when its level is not above the manager's.
    enum class Level : int { ERR = 0, WAR = 1, INF = 2, DEB = 3 };

    CLOGMANAGER() = delete;

    /// Counts an event of a channel. The count stops at the largest long.
    ///
    /// \return the new count; 0, and nothing is counted, when the channel is disabled or `type` is not one of the
    /// three.
    static long AddEvent(const char* name, LogEventType type);
    /// The number of events counted; 0 for an unknown channel or type.
    [[nodiscard]] static long GetEventCount(const char* name, LogEventType type);
    /// Sets the three counts of a channel to 0. Unknown channels stay unknown.
    static void ResetEvents(const char* name);

    /// Turns the whole log output on (the default) or off. Off closes the file; on lets it be opened again when it is
    /// needed. Channels that are not known yet are enabled or disabled accordingly from now on.
    static void Enable(int on);
    /// Enables or disables a channel. If that enables a channel, the log file is opened. If it disables a known
    /// channel, the log file is closed, and the next line of another channel opens it again.
    ///
    /// \throws FrameworkException  when the file cannot be opened; the channel is then unchanged.
    static void Enable(const char* name, int on);
    /// Applies the user's settings under the key `key` + `\Log`: `Enable`, a number for Enable(int), and `Level`, a
    /// number from 0 to 3 for SetLevel(). platform/Preferences.h says where they are stored: in the registry on
    /// Windows, in a file on Linux.
    ///
    /// \param on   for Enable(int) when the setting does not exist.
    /// \param key  null means `MLCore`.
    static void EnableFromPref(int on, const char* key);
    /// 1 when the log output is on, else 0.
    [[nodiscard]] static int IsEnable();
    /// 1 when the channel is enabled, else 0. An unknown channel is enabled unless Enable(0) was called.
    [[nodiscard]] static int IsEnable(const char* name);

    /// Logs to this file from now on. A relative path starts at the current folder. Null restores the default file,
    /// which has the program's path with the extension ".out".
    static void SetLogFile(const char* path);
    /// Sets the highest level of lines that are written. The default is INF.
    static void SetLevel(Level level) noexcept;
    [[nodiscard]] static Level GetLevel() noexcept;

    /// On (the default) passes each line to the system immediately. Off lets lines wait until they make 64 KiB, Flush()
    /// is called, or the program ends. That is several times as fast, but waiting lines are lost when the program
    /// crashes. Lines stay whole.
    static void SetAutoFlush(int on);
    /// Passes the waiting lines to the system.
    static void Flush();

    /// Opens the log file and returns the stream that writes to it, which lives as long as the process. Its text is
    /// written when it is flushed and before the next line of a logger, which begins a new line. While no file is open,
    /// inserted text is dropped, until GetStream() or the next line of a logger opens the file again. Threads must not
    /// use the stream while others log.
    ///
    /// \throws FrameworkException  once, when the file cannot be opened.
    [[nodiscard]] static std::ostream& GetStream();

protected:
    friend class CLOGGERBASE;
    friend struct CLOGMANAGERPOLICY;

    /// A different number at each call, from 1.
    [[nodiscard]] static long GetLoggerId() noexcept;

private:
    static void WriteLine(const std::string& name, const std::string& text);
};

/// Writes "ERR", "WAR", "INF" or "DEB", or the number of any other value.
MLCORE_API std::ostream& operator<<(std::ostream& out, CLOGMANAGER::Level level);

}  // namespace MLCore
