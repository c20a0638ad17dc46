#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CGLOBALSTREAM.h>

namespace MLCore {

/// A stream over memory of its own that grows as it is written.
///
///     CBUFFERSTREAM buffer;
///     buffer.Open();
///     buffer << 7L << "seven";
///     buffer.Open();  // back at the first byte, to read what was written
class MLCORE_API CBUFFERSTREAM : public CGLOBALSTREAM {
public:
    /// Empty.
    CBUFFERSTREAM();
    /// Empty, with memory taken for `capacity` bytes.
    explicit CBUFFERSTREAM(unsigned long capacity);
    /// Holds a copy of the `size` bytes at `data`; null fails with -100 unless `size` is 0.
    CBUFFERSTREAM(unsigned long size, const void* data);
    ~CBUFFERSTREAM() override;

    void Open() override;

    /// The first byte; null while no memory is taken. Valid until the stream grows, or its size is set. Fails with 141
    /// when the stream is closed.
    [[nodiscard]] const void* GetBuffer() const;
    /// The size; 0 when closed.
    [[nodiscard]] unsigned long long GetWritePosition() const;
};

}  // namespace MLCore
