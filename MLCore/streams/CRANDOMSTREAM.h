#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

/// The position of a stream of random access. One position serves reading and writing. It lies between 0 and the size;
/// at the size, the stream is at its end. On a closed stream the queries return 0, and the other operations fail with
/// kErrStreamClosed (141).
class MLCORE_API CRANDOMSTREAM {
public:
    CRANDOMSTREAM() = default;
    CRANDOMSTREAM(const CRANDOMSTREAM&) = default;
    CRANDOMSTREAM& operator=(const CRANDOMSTREAM&) = default;
    virtual ~CRANDOMSTREAM();

    /// In bytes from the first one.
    [[nodiscard]] virtual unsigned long long GetPosition() const = 0;
    /// Fails with kErrStreamEnd (-110) for a position beyond the size.
    virtual void SetPosition(unsigned long long position) = 0;
    /// Goes to `distance` bytes before the end. Fails with kErrStreamEnd for a distance beyond the size.
    virtual void SetPositionFromEnd(unsigned long long distance) = 0;
    /// Moves by `delta` bytes. Fails with kErrStreamEnd when the new position is not between 0 and the size, or when
    /// its low 32 bits, as a signed number, are negative: use SetPosition() beyond 2 GB.
    virtual void OffsetPosition(long delta) = 0;
    /// In bytes.
    [[nodiscard]] virtual unsigned long long GetSize() const = 0;
};

}  // namespace MLCore
