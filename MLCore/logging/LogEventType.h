#pragma once

#include <MLCore/platform/Export.h>

#include <ostream>

namespace MLCore {

/// The kinds of events that a log channel counts.
enum class LogEventType : int {
    INFO = 0,    ///< something worth knowing
    ALERTE = 1,  ///< a warning
    ERREUR = 2,  ///< an error
};

/// Writes "INFO", "ALERTE" or "ERREUR", or the number of any other value.
MLCORE_API std::ostream& operator<<(std::ostream& out, LogEventType type);

}  // namespace MLCore
