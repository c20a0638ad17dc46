#pragma once

#include <MLCore/logging/CLOGDEBUGGERPOLICY.h>
#include <MLCore/logging/CLOGGERBASE.h>
#include <MLCore/logging/CLOGMANAGERPOLICY.h>
#include <MLCore/platform/Export.h>

#include <concepts>
#include <ios>
#include <ostream>
#include <string>

namespace MLCore {

/// What becomes of the lines of a logger: a class with `static void Write(const std::string& name, const std::string& text)`,
/// the channel's name and the bare line, without its end.
template <class Policy>
concept LOGPOLICY = requires(const std::string& name, const std::string& text) {
    Policy::Write(name, text);
};

/// A logger that hands each finished line to a policy: CLOGMANAGERPOLICY, CLOGDEBUGGERPOLICY, or one of your own.
///
///     CLOGMANAGERLOGGER log("import", CLOGMANAGER::Level::WAR);
///     log << "line " << number << ": no date" << MLCore::endl;
///
/// It takes everything that a standard stream takes, manipulators included. MLCore::endl ends the line, and so does
/// std::endl.
template <LOGPOLICY Policy>
class MLCORE_TEMPLATE_API CLOGGERBASIC : public CLOGGERBASE {
public:
    explicit CLOGGERBASIC(const char* name, CLOGMANAGER::Level level = CLOGMANAGER::Level::INF)
        : CLOGGERBASE(name, level) {}

    template <class T>
    CLOGGERBASIC& operator<<(const T& value) {
        GetStream() << value;
        return *this;
    }
    /// Null adds nothing.
    CLOGGERBASIC& operator<<(const char* text) {
        GetStream() << (text != nullptr ? text : "");
        return *this;
    }
    CLOGGERBASIC& operator<<(CLOGGERBASIC& (*manipulator)(CLOGGERBASIC&)) { return manipulator(*this); }
    CLOGGERBASIC& operator<<(std::ios_base& (*manipulator)(std::ios_base&)) {
        manipulator(GetStream());
        return *this;
    }
    // Not the function itself: where both kinds of `endl` are in scope, the logger's is the better match.
    struct STREAMMANIPULATOR {
        STREAMMANIPULATOR(std::ostream& (*manipulator)(std::ostream&)) : function(manipulator) {}  // implicit
        std::ostream& (*function)(std::ostream&);
    };
    CLOGGERBASIC& operator<<(STREAMMANIPULATOR manipulator) {
        if (manipulator.function == STREAMMANIPULATOR(std::endl).function) {
            EndLine();
        } else {
            manipulator.function(GetStream());
        }
        return *this;
    }

    /// Passes the line to the policy when the logger is enabled, and begins a new one in any case. What the policy throws
    /// passes through.
    void EndLine() {
        const std::string text = GetStr();
        ResetStr();
        if (IsEnable() != 0) {
            NextMsg();
            Policy::Write(GetName(), text);
        }
    }
};

/// `logger << MLCore::endl` ends the line.
template <class Policy>
CLOGGERBASIC<Policy>& endl(CLOGGERBASIC<Policy>& logger) {
    logger.EndLine();
    return logger;
}

extern template class MLCORE_API CLOGGERBASIC<CLOGMANAGERPOLICY>;
extern template class MLCORE_API CLOGGERBASIC<CLOGDEBUGGERPOLICY>;

/// Logs to the log file of the process.
using CLOGMANAGERLOGGER = CLOGGERBASIC<CLOGMANAGERPOLICY>;
/// Logs to the debugger.
using CLOGDEBUGGERLOGGER = CLOGGERBASIC<CLOGDEBUGGERPOLICY>;

}  // namespace MLCore
