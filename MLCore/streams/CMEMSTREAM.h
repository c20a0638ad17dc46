#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>

namespace MLCore {

/// A stream over a memory area of the caller's, which outlives it and never grows. Its size is at first the capacity, so
/// the whole area can be read.
class MLCORE_API CMEMSTREAM : public CURSORSTREAM {
public:
    /// Over `capacity` bytes at `data`. Null with a capacity fails with -100.
    CMEMSTREAM(unsigned long capacity, void* data);
    ~CMEMSTREAM() override;

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    void Open() override;
    long GetValue(void* buffer, long count) override;
    /// Fails with -111, and writes nothing, when the bytes do not fit the capacity.
    void SetValue(const void* buffer, long count) override;

    /// Also beyond 2 GB.
    void OffsetPosition(long delta) override;
    /// Fails with -111 above the capacity. Bytes that come in are what the area holds.
    void SetSize(unsigned long long size) override;

    /// The size; 0 when closed.
    [[nodiscard]] unsigned long long GetWritePosition() const;
    /// The capacity minus the size; 0 when closed.
    [[nodiscard]] unsigned long long GetFree() const;

private:
    void* mData;
    unsigned long long mCapacity;
};

}  // namespace MLCore
