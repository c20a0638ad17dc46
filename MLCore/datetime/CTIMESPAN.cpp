#include <MLCore/datetime/CTIMESPAN.h>

#include <MLCore/text/DecimalText.h>

#include <limits>
#include <ostream>

namespace MLCore {

namespace {

constexpr long long kMost = std::numeric_limits<long long>::max();
constexpr long long kLeast = std::numeric_limits<long long>::min();

long long Sum(long long left, long long right) noexcept {
    if (right > 0 && left > kMost - right) {
        return kMost;
    }
    if (right < 0 && left < kLeast - right) {
        return kLeast;
    }
    return left + right;
}

long long Times(long long count, long long unit) noexcept {
    if (count > kMost / unit) {
        return kMost;
    }
    return count < kLeast / unit ? kLeast : count * unit;
}

}  // namespace

void CTIMESPAN::SetHours(long hours) noexcept { mSeconds = Sum(Times(hours, 3600), mSeconds % 3600); }

void CTIMESPAN::SetMinutes(long minutes) noexcept {
    mSeconds = Sum(Times(minutes, 60), mSeconds / 3600 * 3600 + mSeconds % 60);
}

void CTIMESPAN::SetSeconds(long seconds) noexcept { mSeconds = Sum(seconds, mSeconds / 60 * 60); }

CTIMESPAN& CTIMESPAN::operator+=(const CTIMESPAN& other) noexcept {
    mSeconds = Sum(mSeconds, other.mSeconds);
    return *this;
}

CTIMESPAN& CTIMESPAN::operator-=(const CTIMESPAN& other) noexcept {
    // The smallest span has no opposite; half a step at a time it needs none.
    mSeconds = other.mSeconds == kLeast ? Sum(Sum(mSeconds, kMost), 1) : Sum(mSeconds, -other.mSeconds);
    return *this;
}

std::string CTIMESPAN::ToString() const {
    std::string text = mSeconds < 0 ? "-" : "";
    AppendPadded(text, GetHours() < 0 ? -GetHours() : GetHours(), 1);
    for (const int part : {GetMinutes(), GetSeconds()}) {
        text += ':';
        AppendPadded(text, part < 0 ? -part : part, 2);
    }
    return text;
}

std::ostream& operator<<(std::ostream& out, const CTIMESPAN& span) {
    return out << "CTIMESPAN(" << span.ToString() << ')';
}

}  // namespace MLCore
