#include <MLCore/streams/detail/CURSORSTREAM.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/core/FailureChecks.h>

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
    STREAMCURSOR* const lent = IsExactly(*this, own) ? &mCursor : nullptr;
    CISTREAM::mLent = lent;
    COSTREAM::mLent = lent;
}

int CURSORSTREAM::IsEnd() const { return !IsReady() || mCursor.IsAtEnd() ? 1 : 0; }

long CURSORSTREAM::GetValue(COSTREAM& out) {
    RequireReady("copy the stream");
    return CISTREAM::GetValue(out);
}

unsigned long long CURSORSTREAM::GetPosition() const { return IsReady() ? mCursor.GetPosition() : 0; }

void CURSORSTREAM::SetPosition(unsigned long long position) {
    RequireReady("set the position");
    mCursor.SetPosition(position);
}

void CURSORSTREAM::SetPositionFromEnd(unsigned long long distance) {
    RequireReady("set the position");
    mCursor.SetPositionFromEnd(distance);
}

void CURSORSTREAM::OffsetPosition(long delta) {
    RequireReady("move the position");
    mCursor.Offset(delta);
}

unsigned long long CURSORSTREAM::GetSize() const { return IsReady() ? mCursor.GetSize() : 0; }

const char* CURSORSTREAM::GetFailurePath() const noexcept { return nullptr; }

void CURSORSTREAM::FailClosed(const char* operation) const {
    const char* const path = GetFailurePath();
    if (path != nullptr) {
        FailWith(kErrStreamClosed, "cannot ", operation, ": the stream of ", QuotedPath(path), " is closed");
    }
    FailWith(kErrStreamClosed, "cannot ", operation, ": the stream is closed");
}

}  // namespace MLCore
