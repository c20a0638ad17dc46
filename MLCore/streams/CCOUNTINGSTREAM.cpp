#include <MLCore/streams/CCOUNTINGSTREAM.h>

#include <algorithm>
#include <limits>

namespace MLCore {

CCOUNTINGSTREAM::CCOUNTINGSTREAM() : CSTREAM(ReadWrite), CURSORSTREAM(ReadWrite) {}

CCOUNTINGSTREAM::~CCOUNTINGSTREAM() = default;

int CCOUNTINGSTREAM::IsEnd() const { return IsOpen() == 0 || mCursor.GetPosition() == mCursor.GetSize() ? 1 : 0; }

long CCOUNTINGSTREAM::GetValue(COSTREAM& out) {
    FailClosed(*this);
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
    FailClosed(*this);
    const long available = mCursor.Available(count);
    if (count > 0) {
        mCursor.MoveOn(count);
    }
    return available;
}

void CCOUNTINGSTREAM::SetValue(const void*, long count) {
    FailClosed(*this);
    if (count > 0) {
        mCursor.Advance(count);
    }
}

void CCOUNTINGSTREAM::OffsetPosition(long delta) {
    FailClosed(*this);
    if (delta < 0 && 0 - static_cast<unsigned long long>(delta) > mCursor.GetPosition()) {
        FailOSErr(kErrStreamEnd);
    }
    mCursor.MoveOn(delta);
}

void CCOUNTINGSTREAM::SetSize(unsigned long long size) {
    FailClosed(*this);
    mCursor.SetSize(size);
}

}  // namespace MLCore
