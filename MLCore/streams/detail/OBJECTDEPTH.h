#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/CISTREAM.h>

namespace MLCore {

/// Counts how deep objects are nested in each other while one of them is read or written: nothing else keeps data from
/// nesting them until the stack overflows. Fails with kErrValueType (138) beyond CISTREAM::kMaxObjectDepth.
class OBJECTDEPTH {
public:
    explicit OBJECTDEPTH(short& depth);
    ~OBJECTDEPTH() { --mDepth; }
    OBJECTDEPTH(const OBJECTDEPTH&) = delete;
    OBJECTDEPTH& operator=(const OBJECTDEPTH&) = delete;

private:
    short& mDepth;
};

inline OBJECTDEPTH::OBJECTDEPTH(short& depth) : mDepth(depth) {
    Require(mDepth < CISTREAM::kMaxObjectDepth, kErrValueType, "objects are nested in each other more than ",
            CISTREAM::kMaxObjectDepth, " deep");
    ++mDepth;
}

}  // namespace MLCore
