#pragma once

#include <MLCore/core/FrameworkException.h>

namespace support {

/// The message number of the FrameworkException that `action` throws; 0 when it throws none.
template <class Action>
int FailureOf(Action&& action) {
    try {
        static_cast<void>(action());
    } catch (const MLCore::FrameworkException& failure) {
        return failure.GetMsg();
    }
    return 0;
}

}  // namespace support
