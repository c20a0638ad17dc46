#include <MLCore/streams/CURSORSTREAM.h>

namespace MLCore {

CURSORSTREAM::CURSORSTREAM(OpenMode mode, unsigned long long size)
    : CSTREAM(mode), CRANDOMIOSTREAM(mode), mCursor(size) {}

CURSORSTREAM::~CURSORSTREAM() = default;

void CURSORSTREAM::Open() {
    CSTREAM::Open();
    mCursor.Rewind();
}

int CURSORSTREAM::IsEnd() const { return IsOpen() == 0 || mCursor.IsAtEnd() ? 1 : 0; }

long CURSORSTREAM::GetValue(COSTREAM& out) {
    FailClosed(*this);
    return CISTREAM::GetValue(out);
}

unsigned long long CURSORSTREAM::GetPosition() const { return IsOpen() != 0 ? mCursor.GetPosition() : 0; }

void CURSORSTREAM::SetPosition(unsigned long long position) {
    FailClosed(*this);
    mCursor.SetPosition(position);
}

void CURSORSTREAM::SetPositionFromEnd(unsigned long long distance) {
    FailClosed(*this);
    mCursor.SetPositionFromEnd(distance);
}

void CURSORSTREAM::OffsetPosition(long delta) {
    FailClosed(*this);
    mCursor.Offset(delta);
}

unsigned long long CURSORSTREAM::GetSize() const { return IsOpen() != 0 ? mCursor.GetSize() : 0; }

}  // namespace MLCore
