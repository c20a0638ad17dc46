#include <MLCore/streams/CRESOURCESTREAM.h>

#include <MLCore/platform/ModuleResources.h>

#include <cstdint>

namespace MLCore {

namespace {

/// Of the numbers that stand for a name.
constexpr std::uintptr_t kLastNumber = 0xFFFF;

}  // namespace

CRESOURCESTREAM::CRESOURCESTREAM(HINSTANCE module, const char* name, unsigned short type)
    : CRESOURCESTREAM(Find(module, name, type)) {}

CRESOURCESTREAM::CRESOURCESTREAM(const CRESOURCEINFO& info)
    : CSTREAM(Read),
      CRANDOMISTREAM(Read),
      mResource(info.GetResource()),
      mData(platform::LockModuleResource(mResource)),
      mCursor(static_cast<unsigned long long>(info.GetSize())) {
    Require(mData != nullptr && mCursor.GetSize() != 0, kErrNull, "the resource has no bytes or cannot be loaded");
}

CRESOURCESTREAM::~CRESOURCESTREAM() = default;

void CRESOURCESTREAM::Open() {
    CSTREAM::Open();
    mCursor.Rewind();
}

int CRESOURCESTREAM::IsEnd() const { return IsOpen() == 0 || mCursor.IsAtEnd() ? 1 : 0; }

long CRESOURCESTREAM::GetValue(COSTREAM& out) {
    RequireOpen("copy the stream");
    return CISTREAM::GetValue(out);
}

long CRESOURCESTREAM::GetValue(void* buffer, long count) {
    RequireOpen("read");
    RequireBuffer(buffer, count, "read into");
    return mCursor.ReadFrom(mData, buffer, count);
}

unsigned long long CRESOURCESTREAM::GetPosition() const { return IsOpen() != 0 ? mCursor.GetPosition() : 0; }

void CRESOURCESTREAM::SetPosition(unsigned long long position) {
    RequireOpen("set the position");
    mCursor.SetPosition(position);
}

void CRESOURCESTREAM::SetPositionFromEnd(unsigned long long distance) {
    RequireOpen("set the position");
    mCursor.SetPositionFromEnd(distance);
}

void CRESOURCESTREAM::OffsetPosition(long delta) {
    RequireOpen("move the position");
    mCursor.Offset(delta);
}

unsigned long long CRESOURCESTREAM::GetSize() const { return IsOpen() != 0 ? mCursor.GetSize() : 0; }

void CRESOURCESTREAM::SetSize(unsigned long long) { RequireOpen("set the size"); }

CRESOURCEINFO CRESOURCESTREAM::Find(HINSTANCE module, const char* name, unsigned short type) {
    const HRSRC resource = platform::FindModuleResource(module, name, type);
    if (resource == nullptr) {
        const auto number = reinterpret_cast<std::uintptr_t>(name);  // a small one is no address
        if (number <= kLastNumber) {
            FailWith(kErrNull, "the module has no resource ", number, " of type ", type);
        }
        FailWith(kErrNull, "the module has no resource ", Quoted(name), " of type ", type);
    }
    return CRESOURCEINFO(module, resource);
}

void CRESOURCESTREAM::RequireOpen(const char* operation) const {
    Require(IsOpen() != 0, kErrStreamClosed, "cannot ", operation, ": the stream is closed");
}

}  // namespace MLCore
