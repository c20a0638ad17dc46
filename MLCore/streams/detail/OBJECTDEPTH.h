#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/CISTREAM.h>

namespace MLCore {

/// Counts how deep objects are nested while one is read or written: data could nest them until the stack ends. Beyond
/// CISTREAM::kMaxObjectDepth: 138.
class OBJECTDEPTH {
public:
    explicit OBJECTDEPTH(short& depth) : mDepth(depth) {
        if (mDepth >= CISTREAM::kMaxObjectDepth) {
            FailOSErr(kErrValueType);
        }
        ++mDepth;
    }
    ~OBJECTDEPTH() { --mDepth; }
    OBJECTDEPTH(const OBJECTDEPTH&) = delete;
    OBJECTDEPTH& operator=(const OBJECTDEPTH&) = delete;

private:
    short& mDepth;
};

}  // namespace MLCore
