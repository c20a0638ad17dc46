#include <MLCore/streams/detail/CURSORSTREAM.h>

namespace MLCore {

CURSORSTREAM::CURSORSTREAM(OpenMode mode, unsigned long long size)
    : CSTREAM(mode), CRANDOMIOSTREAM(mode), mCursor(size) {}

CURSORSTREAM::~CURSORSTREAM() = default;

void CURSORSTREAM::Open() {
    CSTREAM::Open();
    mCursor.Rewind();
}

void CURSORSTREAM::Close() {
    CISTREAM::mLent = nullptr;
    COSTREAM::mLent = nullptr;
    CSTREAM::Close();
}

void CURSORSTREAM::Lend(const std::type_info& own) noexcept {
    STREAMCURSOR* const lent = typeid(*this) == own ? &mCursor : nullptr;
    CISTREAM::mLent = lent;
    COSTREAM::mLent = lent;
}

int CURSORSTREAM::IsEnd() const { return !IsReady() || mCursor.IsAtEnd() ? 1 : 0; }

long CURSORSTREAM::GetValue(COSTREAM& out) {
    FailNotReady();
    return CISTREAM::GetValue(out);
}

unsigned long long CURSORSTREAM::GetPosition() const { return IsReady() ? mCursor.GetPosition() : 0; }

void CURSORSTREAM::SetPosition(unsigned long long position) {
    FailNotReady();
    mCursor.SetPosition(position);
}

void CURSORSTREAM::SetPositionFromEnd(unsigned long long distance) {
    FailNotReady();
    mCursor.SetPositionFromEnd(distance);
}

void CURSORSTREAM::OffsetPosition(long delta) {
    FailNotReady();
    mCursor.Offset(delta);
}

unsigned long long CURSORSTREAM::GetSize() const { return IsReady() ? mCursor.GetSize() : 0; }

}  // namespace MLCore
