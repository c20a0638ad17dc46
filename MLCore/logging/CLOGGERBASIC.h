#pragma once

#include <MLCore/logging/CLOGDEBUGGERPOLICY.h>
#include <MLCore/logging/CLOGGERBASE.h>
#include <MLCore/logging/CLOGMANAGERPOLICY.h>
#include <MLCore/platform/Export.h>

#include <concepts>
#include <ios>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

namespace MLCore {

/// A class that receives the lines of a logger, with `static void Write(const std::string& name, const std::string&
/// text)`: the channel's name and the bare line, without its end.
template <class Policy>
concept LOGPOLICY = requires(const std::string& name, const std::string& text) {
    Policy::Write(name, text);
};

/// The types that streams write as numbers of at most 64 bits. Characters are not among them.
template <class T>
concept LOGNUMBER =
    std::disjunction_v<std::is_same<T, bool>, std::is_same<T, short>, std::is_same<T, unsigned short>,
                       std::is_same<T, int>, std::is_same<T, unsigned>, std::is_same<T, long>,
                       std::is_same<T, unsigned long>, std::is_same<T, long long>, std::is_same<T, unsigned long long>,
                       std::is_same<T, float>, std::is_same<T, double>>;

template <class T>
concept LOGCHARACTER = std::same_as<T, char> || std::same_as<T, signed char> || std::same_as<T, unsigned char>;

/// The pointers that streams write as texts.
template <class T>
concept LOGTEXT = std::is_pointer_v<T> && LOGCHARACTER<std::remove_cv_t<std::remove_pointer_t<T>>>;

/// A logger that passes each finished line to a policy: CLOGMANAGERPOLICY, CLOGDEBUGGERPOLICY, or your own.
///
///     CLOGMANAGERLOGGER log("import", CLOGMANAGER::Level::WAR);
///     log << "line " << number << ": no date" << MLCore::endl;
///
/// It accepts everything that a standard stream accepts, with manipulators. MLCore::endl ends the line, and so does
/// std::endl.
template <LOGPOLICY Policy>
class MLCORE_TEMPLATE_API CLOGGERBASIC : public CLOGGERBASE {
public:
    explicit CLOGGERBASIC(const char* name, CLOGMANAGER::Level level = CLOGMANAGER::Level::INF);

    template <class T>
    CLOGGERBASIC& operator<<(const T& value);
    /// Null adds nothing.
    CLOGGERBASIC& operator<<(const char* text);
    CLOGGERBASIC& operator<<(CLOGGERBASIC& (*manipulator)(CLOGGERBASIC&));
    CLOGGERBASIC& operator<<(std::ios_base& (*manipulator)(std::ios_base&));
    CLOGGERBASIC& operator<<(STREAMMANIPULATOR manipulator);

    /// Passes the line to the policy when the logger is enabled, and always begins a new line. Exceptions of the policy
    /// pass through.
    void EndLine();
};

// Outside the class, because Windows does not export inline functions of class templates.
template <LOGPOLICY Policy>
CLOGGERBASIC<Policy>::CLOGGERBASIC(const char* name, CLOGMANAGER::Level level) : CLOGGERBASE(name, level) {}

template <LOGPOLICY Policy>
template <class T>
CLOGGERBASIC<Policy>& CLOGGERBASIC<Policy>::operator<<(const T& value) {
    if constexpr (std::is_same_v<std::decay_t<T>, typename CLOGGERBASE::STREAMMANIPULATOR::FUNCTION>) {
        return *this << STREAMMANIPULATOR(value);
    } else if constexpr (LOGTEXT<T>) {
        if (value == nullptr) {
            return *this;
        }
    } else if constexpr (LOGNUMBER<T>) {
        using LONG = std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>;
        if (InsertPlain(static_cast<std::conditional_t<std::is_floating_point_v<T>, double, LONG>>(value))) {
            return *this;
        }
    }
    GetStream() << value;
    return *this;
}

template <LOGPOLICY Policy>
CLOGGERBASIC<Policy>& CLOGGERBASIC<Policy>::operator<<(const char* text) {
    GetStream() << (text != nullptr ? text : "");
    return *this;
}

template <LOGPOLICY Policy>
CLOGGERBASIC<Policy>& CLOGGERBASIC<Policy>::operator<<(CLOGGERBASIC& (*manipulator)(CLOGGERBASIC&)) {
    return manipulator(*this);
}

template <LOGPOLICY Policy>
CLOGGERBASIC<Policy>& CLOGGERBASIC<Policy>::operator<<(std::ios_base& (*manipulator)(std::ios_base&)) {
    manipulator(GetStream());
    return *this;
}

template <LOGPOLICY Policy>
CLOGGERBASIC<Policy>& CLOGGERBASIC<Policy>::operator<<(STREAMMANIPULATOR manipulator) {
    if (manipulator.endsLine) {
        EndLine();
    } else {
        manipulator.function(GetStream());
    }
    return *this;
}

template <LOGPOLICY Policy>
void CLOGGERBASIC<Policy>::EndLine() {
    std::string text = TakeStr();
    if (IsEnable() != 0) {
        NextMsg();
        Policy::Write(GetName(), std::as_const(text));
    }
    GiveBack(std::move(text));
}

/// `logger << MLCore::endl` ends the line.
template <class Policy>
CLOGGERBASIC<Policy>& endl(CLOGGERBASIC<Policy>& logger) {
    logger.EndLine();
    return logger;
}

MLCORE_DECLARE_INSTANCE(CLOGGERBASIC<CLOGMANAGERPOLICY>)
MLCORE_DECLARE_INSTANCE(CLOGGERBASIC<CLOGDEBUGGERPOLICY>)

/// Logs to the log file of the process.
using CLOGMANAGERLOGGER = CLOGGERBASIC<CLOGMANAGERPOLICY>;
/// Logs to the debugger.
using CLOGDEBUGGERLOGGER = CLOGGERBASIC<CLOGDEBUGGERPOLICY>;

}  // namespace MLCore
