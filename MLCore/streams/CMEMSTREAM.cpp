#include <MLCore/streams/CMEMSTREAM.h>

namespace MLCore {

CMEMSTREAM::CMEMSTREAM(unsigned long capacity, void* data)
    : CSTREAM(ReadWrite), CURSORSTREAM(ReadWrite, capacity), mData(data), mCapacity(capacity) {
    if (capacity != 0) {
        FailNull(data);
    }
    mCursor.SetArea({static_cast<char*>(data), 0, capacity});
}

CMEMSTREAM::~CMEMSTREAM() = default;

void CMEMSTREAM::Open() {
    CURSORSTREAM::Open();
    Lend(typeid(CMEMSTREAM));
}

long CMEMSTREAM::GetValue(void* buffer, long count) {
    FailNotReady();
    FailNullBuffer(buffer, count);
    return mCursor.ReadFrom(mData, buffer, count);
}

void CMEMSTREAM::SetValue(const void* buffer, long count) {
    FailNotReady();
    FailNullBuffer(buffer, count);
    if (count <= 0) {
        return;
    }
    if (static_cast<unsigned long long>(count) > mCapacity - mCursor.GetPosition()) {
        FailOSErr(kErrStreamName);
    }
    mCursor.WriteTo(mData, buffer, count);
}

void CMEMSTREAM::OffsetPosition(long delta) {
    FailNotReady();
    mCursor.OffsetFar(delta);
}

void CMEMSTREAM::SetSize(unsigned long long size) {
    FailNotReady();
    if (size > mCapacity) {
        FailOSErr(kErrStreamName);
    }
    mCursor.SetSize(size);
}

unsigned long long CMEMSTREAM::GetWritePosition() const { return GetSize(); }

unsigned long long CMEMSTREAM::GetFree() const { return IsOpen() != 0 ? mCapacity - mCursor.GetSize() : 0; }

}  // namespace MLCore
