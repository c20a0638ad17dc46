#include <MLCore/streams/CCOUNTINGSTREAM.h>

#include <algorithm>
#include <limits>

namespace MLCore {

CCOUNTINGSTREAM::CCOUNTINGSTREAM() : CSTREAM(ReadWrite), CURSORSTREAM(ReadWrite) {}

CCOUNTINGSTREAM::~CCOUNTINGSTREAM() = default;

int CCOUNTINGSTREAM::IsEnd() const { return IsOpen() == 0 || mCursor.GetPosition() == mCursor.GetSize() ? 1 : 0; }

long CCOUNTINGSTREAM::GetValue(COSTREAM& out) {
    RequireReady("copy the stream");
    static constexpr char kZeros[1024] = {};
    unsigned long long total = 0;
    for (long step = 0; (step = mCursor.Available(sizeof(kZeros))) > 0;
         total += static_cast<unsigned long long>(step)) {
        mCursor.MoveOn(step);
        out.SetValue(static_cast<const void*>(kZeros), step);
    }
    return static_cast<long>(std::min<unsigned long long>(total, std::numeric_limits<long>::max()));
}

long CCOUNTINGSTREAM::GetValue(void*, long count) {
    RequireReady("read");
    const long available = mCursor.Available(count);
    if (count > 0) {
        mCursor.MoveOn(count);
    }
    return available;
}

void CCOUNTINGSTREAM::SetValue(const void*, long count) {
    RequireReady("write");
    if (count > 0) {
        mCursor.Advance(count);
    }
}

void CCOUNTINGSTREAM::OffsetPosition(long delta) {
    RequireReady("move the position");
    const bool isInside = delta >= 0 || 0 - static_cast<unsigned long long>(delta) <= mCursor.GetPosition();
    Require(isInside, kErrStreamEnd, "cannot move by ", delta, " bytes from byte ", mCursor.GetPosition());
    mCursor.MoveOn(delta);
}

void CCOUNTINGSTREAM::SetSize(unsigned long long size) {
    RequireReady("set the size");
    mCursor.SetSize(size);
}

}  // namespace MLCore
