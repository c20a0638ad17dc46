#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

/// The position of a stream that can be moved: one position serves reading and writing. It lies in 0..size; at the size,
/// the stream is at its end. On a closed stream the queries answer 0 and the rest fails with 141.
class MLCORE_API CRANDOMSTREAM {
public:
    CRANDOMSTREAM() = default;
    CRANDOMSTREAM(const CRANDOMSTREAM&) = default;
    CRANDOMSTREAM& operator=(const CRANDOMSTREAM&) = default;
    virtual ~CRANDOMSTREAM();

    [[nodiscard]] virtual unsigned long long GetPosition() const = 0;
    /// Fails with -110 beyond the size.
    virtual void SetPosition(unsigned long long position) = 0;
    /// `distance` bytes before the end. Fails with -110 beyond the size.
    virtual void SetPositionFromEnd(unsigned long long distance) = 0;
    /// Fails with -110 when that leaves 0..size, or when the new position, cut to a signed 32-bit number, is negative:
    /// beyond 2 GB, positions are set, not moved.
    virtual void OffsetPosition(long delta) = 0;
    /// In bytes.
    [[nodiscard]] virtual unsigned long long GetSize() const = 0;
};

}  // namespace MLCore
