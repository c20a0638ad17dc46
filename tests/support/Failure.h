#pragma once

#include <MLCore/core/FrameworkException.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace support {

/// What a FrameworkException says; all 0 and empty where none was thrown.
struct FAILURE {
    int errorClass = 0;
    int msg = 0;
    unsigned int code = 0;
    std::string text;

    friend bool operator==(const FAILURE&, const FAILURE&) = default;
    /// A failure is its message number where its class is the same number, as with all but a few: those are compared
    /// as a whole, like the (1, 0) of FailFALSE(). 0 is no failure.
    friend bool operator==(const FAILURE& failure, int number) {
        return failure.msg == number && failure.errorClass == number;
    }

    friend std::ostream& operator<<(std::ostream& out, const FAILURE& failure) {
        if (failure == FAILURE()) {
            return out << "no failure";
        }
        return out << "failure " << failure.msg << " (class " << failure.errorClass << ", code " << std::hex
                   << std::showbase << failure.code << std::dec << std::noshowbase << ") \"" << failure.text << '"';
    }
};

/// What Saying() expects.
struct SAYING {
    int msg;
    std::vector<std::string> parts;

    friend bool operator==(const FAILURE& failure, const SAYING& expected) {
        const auto isSaid = [&failure](const std::string& part) {
            return failure.text.find(part) != std::string::npos;
        };
        return failure == expected.msg && std::all_of(expected.parts.begin(), expected.parts.end(), isSaid);
    }
    friend std::ostream& operator<<(std::ostream& out, const SAYING& expected) {
        out << "failure " << expected.msg << " that says";
        for (const std::string& part : expected.parts) {
            out << " \"" << part << '"';
        }
        return out;
    }
};

/// The failure of `action`.
template <class Action>
FAILURE FailureOf(Action&& action) {
    try {
        static_cast<void>(action());
    } catch (const MLCore::FrameworkException& failure) {
        const char* const text = failure.GetText();
        return {failure.GetClass(), failure.GetMsg(), failure.GetCode(), text != nullptr ? text : ""};
    }
    return {};
}

/// A failure with this number whose text holds each of the parts:
///     EXPECT_EQ(FailureOf([&] { order->GetKeyValue("amont"); }), Saying(151, "CORDER", "amont"));
template <class... Part>
SAYING Saying(int msg, const Part&... parts) {
    return {msg, {parts...}};
}

}  // namespace support
