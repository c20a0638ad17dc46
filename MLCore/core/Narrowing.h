/// Numbers whose interface is a `long`, 64 bits wide on some systems, and whose stored form is 32 bits on all. What does
/// not fit fails and is never cut. Not for clients.
#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>

#include <cstdint>

namespace MLCore {

/// The number in 32 bits; fails with kErrOverflow when it does not fit.
[[nodiscard]] inline std::int32_t Int32OrFail(long value) {
    const auto narrow = static_cast<std::int32_t>(value);
    if (narrow != value) {
        FailOSErr(kErrOverflow);
    }
    return narrow;
}

[[nodiscard]] inline std::uint32_t UInt32OrFail(unsigned long value) {
    const auto narrow = static_cast<std::uint32_t>(value);
    if (narrow != value) {
        FailOSErr(kErrOverflow);
    }
    return narrow;
}

}  // namespace MLCore
