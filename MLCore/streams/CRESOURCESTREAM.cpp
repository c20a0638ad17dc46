#include <MLCore/streams/CRESOURCESTREAM.h>

#include <MLCore/platform/ModuleResources.h>

namespace MLCore {

CRESOURCESTREAM::CRESOURCESTREAM(HINSTANCE module, const char* name, unsigned short type)
    : CRESOURCESTREAM(CRESOURCEINFO(module, platform::FindModuleResource(module, name, type))) {}

CRESOURCESTREAM::CRESOURCESTREAM(const CRESOURCEINFO& info)
    : CSTREAM(Read),
      CRANDOMISTREAM(Read),
      mResource(info.GetResource()),
      mData(platform::LockModuleResource(mResource)),
      mCursor(static_cast<unsigned long long>(info.GetSize())) {
    FailNull(mCursor.GetSize() != 0 ? mData : nullptr);
}

CRESOURCESTREAM::~CRESOURCESTREAM() = default;

void CRESOURCESTREAM::Open() {
    CSTREAM::Open();
    mCursor.Rewind();
}

int CRESOURCESTREAM::IsEnd() const { return IsOpen() == 0 || mCursor.IsAtEnd() ? 1 : 0; }

long CRESOURCESTREAM::GetValue(COSTREAM& out) {
    FailClosed(*this);
    return CISTREAM::GetValue(out);
}

long CRESOURCESTREAM::GetValue(void* buffer, long count) {
    FailClosed(*this);
    FailNullBuffer(buffer, count);
    return mCursor.ReadFrom(mData, buffer, count);
}

unsigned long long CRESOURCESTREAM::GetPosition() const { return IsOpen() != 0 ? mCursor.GetPosition() : 0; }

void CRESOURCESTREAM::SetPosition(unsigned long long position) {
    FailClosed(*this);
    mCursor.SetPosition(position);
}

void CRESOURCESTREAM::SetPositionFromEnd(unsigned long long distance) {
    FailClosed(*this);
    mCursor.SetPositionFromEnd(distance);
}

void CRESOURCESTREAM::OffsetPosition(long delta) {
    FailClosed(*this);
    mCursor.Offset(delta);
}

unsigned long long CRESOURCESTREAM::GetSize() const { return IsOpen() != 0 ? mCursor.GetSize() : 0; }

void CRESOURCESTREAM::SetSize(unsigned long long) { FailClosed(*this); }

}  // namespace MLCore
