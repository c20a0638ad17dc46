/// \file
/// Numbers that interfaces pass as a `long`, which has 64 bits on some systems, and that are stored in 32 bits on
/// all systems. A number that does not fit fails; it is never cut.
#pragma once

#include <MLCore/core/FailureChecks.h>

#include <cstdint>

namespace MLCore {

/// Returns the number in 32 bits. Fails with kErrOverflow (126) when it does not fit.
[[nodiscard]] inline std::int32_t Int32OrFail(long value) {
    const auto narrow = static_cast<std::int32_t>(value);
    Require(narrow == value, kErrOverflow, "the number ", value, " does not fit in 32 bits");
    return narrow;
}

[[nodiscard]] inline std::uint32_t UInt32OrFail(unsigned long value) {
    const auto narrow = static_cast<std::uint32_t>(value);
    Require(narrow == value, kErrOverflow, "the number ", value, " does not fit in 32 bits");
    return narrow;
}

}  // namespace MLCore
