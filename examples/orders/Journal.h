/// The events of a run, on the log channel "orders".
#pragma once

#include <MLCore/logging/LogEventType.h>

#include <ostream>
#include <string>

namespace orders {

/// Starts to count events, and to log them to a file unless the path is empty. Throws a std::runtime_error.
void StartJournal(const std::string& path);

/// Counts an event and logs its text in a line, control characters as "?".
void LogEvent(MLCore::LogEventType type, const std::string& text);

/// Remembers a file that this run has written.
void AddWritten(const std::string& path);

/// Writes how many events of each type there were, in a line, and the files that were written, in a line each.
void WriteClosing(std::ostream& out);

}  // namespace orders
