#pragma once

#include <limits>

/// Which allocations fail, counted while it is armed.
struct FAULTS {
    bool Fails() {
        if (!isArmed || allocationsToGo-- > 0) {
            return false;
        }
        allocationsToGo = isLasting ? 0 : std::numeric_limits<long>::max();
        hasFailed = true;
        return true;
    }
    long allocationsToGo = 0;
    bool isLasting = false, isArmed = false, hasFailed = false;
    long live = 0;
};
extern FAULTS gFaults;
