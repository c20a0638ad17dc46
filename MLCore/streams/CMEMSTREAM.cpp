#include <MLCore/streams/CMEMSTREAM.h>

namespace MLCore {

CMEMSTREAM::CMEMSTREAM(unsigned long capacity, void* data)
    : CSTREAM(ReadWrite), CURSORSTREAM(ReadWrite, capacity), mData(data), mCapacity(capacity) {
    if (capacity != 0) {
        FailNull(data);
    }
}

CMEMSTREAM::~CMEMSTREAM() = default;

long CMEMSTREAM::GetValue(void* buffer, long count) {
    FailClosed(*this);
    return mCursor.ReadFrom(mData, buffer, count);
}

void CMEMSTREAM::SetValue(const void* buffer, long count) {
    FailClosed(*this);
    if (count <= 0) {
        return;
    }
    if (static_cast<unsigned long long>(count) > mCapacity - mCursor.GetPosition()) {
        FailOSErr(kErrStreamName);
    }
    mCursor.WriteTo(mData, buffer, count);
}

void CMEMSTREAM::OffsetPosition(long delta) {
    FailClosed(*this);
    // A sum below 0 wraps far beyond the size.
    mCursor.SetPosition(mCursor.GetPosition() + static_cast<unsigned long long>(delta));
}

void CMEMSTREAM::SetSize(unsigned long long size) {
    FailClosed(*this);
    if (size > mCapacity) {
        FailOSErr(kErrStreamName);
    }
    mCursor.SetSize(size);
}

unsigned long long CMEMSTREAM::GetWritePosition() const { return GetSize(); }

unsigned long long CMEMSTREAM::GetFree() const { return IsOpen() != 0 ? mCapacity - mCursor.GetSize() : 0; }

}  // namespace MLCore
