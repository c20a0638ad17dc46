#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CGLOBALSTREAM.h>

namespace MLCore {

/// A stream over memory that it owns and that grows as it is written.
///
///     CBUFFERSTREAM buffer;
///     buffer.Open();
///     buffer << 7L << "seven";
///     buffer.Open();  // back to the first byte, to read what was written
class MLCORE_API CBUFFERSTREAM : public CGLOBALSTREAM {
public:
    /// Makes an empty stream.
    CBUFFERSTREAM();
    /// Makes an empty stream with memory for `capacity` bytes. Without memory it fails with kErrNull (-100).
    explicit CBUFFERSTREAM(unsigned long capacity);
    /// Copies the `size` bytes at `data`. Fails with kErrNull for null, unless `size` is 0, and without memory.
    CBUFFERSTREAM(unsigned long size, const void* data);
    ~CBUFFERSTREAM() override;

    void Open() override;

    /// The first byte; null while the stream has no memory. The pointer is valid until the stream grows or its size is
    /// set. Fails with kErrStreamClosed (141) when the stream is closed.
    [[nodiscard]] const void* GetBuffer() const;
    /// The size in bytes; 0 when closed.
    [[nodiscard]] unsigned long long GetWritePosition() const;
};

}  // namespace MLCore
