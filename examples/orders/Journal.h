/// What happens in a run, on the log channel "orders".
#pragma once

#include <MLCore/logging/LogEventType.h>

#include <ostream>
#include <string>

namespace orders {

/// Begins to count events, and to log them to a file unless the path is empty. Throws a std::runtime_error.
void StartJournal(const std::string& path);

/// Counts an event and logs its text in a line, control characters as "?".
void Tell(MLCore::LogEventType type, const std::string& text);

/// Writes how many events of each type there were, in a line.
void WriteCounts(std::ostream& out);

}  // namespace orders
