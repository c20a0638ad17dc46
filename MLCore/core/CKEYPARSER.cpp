#include <MLCore/core/CKEYPARSER.h>
#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>

#include <cstdint>
#include <limits>
#include <string_view>

namespace MLCore {

namespace {

constexpr std::string_view kDelimiters = ".[]";

bool IsAt(std::string_view rest, char wanted) { return !rest.empty() && rest.front() == wanted; }

// Takes the name at the front of `rest`, which may be empty.
std::string_view TakeName(std::string_view& rest) {
    const std::string_view name = rest.substr(0, rest.find_first_of(kDelimiters));
    rest.remove_prefix(name.size());
    return name;
}

// Takes "[digits]" at the front of `rest`.
long TakeIndex(std::string_view& rest) {
    rest.remove_prefix(1);
    const std::string_view digits = TakeName(rest);
    std::int64_t index = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') {
            FailOSErr(kErrUnknownKey);
        }
        index = index * 10 + (digit - '0');
        if (index > std::numeric_limits<std::int32_t>::max()) {
            FailOSErr(kErrUnknownKey);
        }
    }
    if (digits.empty() || !IsAt(rest, ']')) {
        FailOSErr(kErrUnknownKey);
    }
    rest.remove_prefix(1);
    return static_cast<long>(index);
}

}  // namespace

CKEYPARSER::CKEYPARSER(const std::string& keyPath) {
    std::string_view rest = keyPath;
    do {
        if (!mAccessPath.empty()) {
            rest.remove_prefix(1);  // the "." that ended the step before
        }
        const std::string_view name = TakeName(rest);
        if (!name.empty()) {
            mAccessPath.push_back({false, std::string(name), 0});
        } else if (!IsAt(rest, '[')) {
            FailOSErr(kErrUnknownKey);
        }
        while (IsAt(rest, '[')) {
            mAccessPath.push_back({true, {}, TakeIndex(rest)});
        }
    } while (IsAt(rest, '.'));
    if (!rest.empty()) {
        FailOSErr(kErrUnknownKey);
    }
}

}  // namespace MLCore
