#include <MLCore/streams/CMEMSTREAM.h>

namespace MLCore {

CMEMSTREAM::CMEMSTREAM(unsigned long capacity, void* data)
    : CSTREAM(ReadWrite), CURSORSTREAM(ReadWrite, capacity), mData(data), mCapacity(capacity) {
    Require(data != nullptr || capacity == 0, kErrNull, "the memory of ", capacity, " bytes for a stream is null");
    mCursor.SetArea({static_cast<char*>(data), 0, capacity});
}

CMEMSTREAM::~CMEMSTREAM() = default;

void CMEMSTREAM::Open() {
    CURSORSTREAM::Open();
    Lend(typeid(CMEMSTREAM));
}

long CMEMSTREAM::GetValue(void* buffer, long count) {
    RequireReady("read");
    RequireBuffer(buffer, count, "read into");
    return mCursor.ReadFrom(mData, buffer, count);
}

void CMEMSTREAM::SetValue(const void* buffer, long count) {
    RequireReady("write");
    RequireBuffer(buffer, count, "write from");
    if (count <= 0) {
        return;
    }
    const unsigned long long room = mCapacity - mCursor.GetPosition();
    Require(static_cast<unsigned long long>(count) <= room, kErrStreamName, "no room for ", count, " bytes at byte ",
            mCursor.GetPosition(), " of a memory of ", mCapacity, " bytes");
    mCursor.WriteTo(mData, buffer, count);
}

void CMEMSTREAM::OffsetPosition(long delta) {
    RequireReady("move the position");
    mCursor.OffsetFar(delta);
}

void CMEMSTREAM::SetSize(unsigned long long size) {
    RequireReady("set the size");
    Require(size <= mCapacity, kErrStreamName, "cannot set the size to ", size, ": the memory has ", mCapacity,
            " bytes");
    mCursor.SetSize(size);
}

unsigned long long CMEMSTREAM::GetWritePosition() const { return GetSize(); }

unsigned long long CMEMSTREAM::GetFree() const { return IsOpen() != 0 ? mCapacity - mCursor.GetSize() : 0; }

}  // namespace MLCore
