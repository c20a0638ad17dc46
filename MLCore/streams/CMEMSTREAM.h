#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>

namespace MLCore {

/// A stream over a memory area of the caller. The area must outlive the stream, and it never grows. At first the size
/// of the stream is the whole capacity, so that all of the area can be read.
class MLCORE_API CMEMSTREAM : public CURSORSTREAM {
public:
    /// Makes a stream over `capacity` bytes at `data`. Null fails with kErrNull (-100), unless `capacity` is 0.
    CMEMSTREAM(unsigned long capacity, void* data);
    ~CMEMSTREAM() override;

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    void Open() override;
    long GetValue(void* buffer, long count) override;
    /// Fails with kErrStreamName (-111), and writes nothing, when the area has no room for the bytes.
    void SetValue(const void* buffer, long count) override;

    /// Also moves beyond 2 GB.
    void OffsetPosition(long delta) override;
    /// Fails with kErrStreamName above the capacity. When the stream grows, the area keeps the bytes that it holds
    /// there.
    void SetSize(unsigned long long size) override;

    /// The size in bytes; 0 when closed.
    [[nodiscard]] unsigned long long GetWritePosition() const;
    /// The capacity minus the size; 0 when closed.
    [[nodiscard]] unsigned long long GetFree() const;

private:
    void* mData;
    unsigned long long mCapacity;
};

}  // namespace MLCore
