#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

namespace MLCore {

/// A part of a stream that lies in memory: `size` bytes at `data`, from the position `start` of the stream on. Behind the
/// stream's end there is only room for them.
struct STREAMAREA {
    char* data = nullptr;
    unsigned long long start = 0;
    std::size_t size = 0;
    bool isForAppending = false;  ///< what lies there already is not to be overwritten
};

/// Fails with -100 for a null buffer, unless no byte is to be moved.
inline void FailNullBuffer(const void* buffer, long count) {
    if (buffer == nullptr && count > 0) {
        FailNull(buffer);
    }
}

/// The size and the position of a stream of random access, and the rules about them that such streams share.
class STREAMCURSOR {
    // Names in brackets: <windows.h> makes macros of them.
public:
    STREAMCURSOR() noexcept = default;
    explicit STREAMCURSOR(unsigned long long size) noexcept : mSize(size) {}

    [[nodiscard]] unsigned long long GetPosition() const noexcept { return mPosition; }
    [[nodiscard]] unsigned long long GetSize() const noexcept { return mSize; }
    [[nodiscard]] bool IsAtEnd() const noexcept { return mPosition >= mSize; }
    /// How many of `count` bytes lie before the end; 0 when `count` is negative.
    [[nodiscard]] long Available(long count) const noexcept {
        return IsAtEnd() || count <= 0
                   ? 0L
                   : static_cast<long>((std::min)(static_cast<unsigned long long>(count), mSize - mPosition));
    }

    void Rewind() noexcept { mPosition = 0; }
    void SetPosition(unsigned long long position) {
        if (position > mSize) {
            FailOSErr(kErrStreamEnd);
        }
        mPosition = position;
    }
    void SetPositionFromEnd(unsigned long long distance) {
        if (distance > mSize) {
            FailOSErr(kErrStreamEnd);
        }
        mPosition = mSize - distance;
    }
    /// By the rule of CRANDOMSTREAM::OffsetPosition(), which ends at 2 GB.
    void Offset(long delta) {
        if (static_cast<std::int32_t>(mPosition + static_cast<unsigned long long>(delta)) < 0) {
            FailOSErr(kErrStreamEnd);
        }
        OffsetFar(delta);
    }
    /// Without that end. A sum below 0 wraps far beyond the size.
    void OffsetFar(long delta) { SetPosition(mPosition + static_cast<unsigned long long>(delta)); }
    /// After a transfer of `count` bytes: moves on, and extends the size when that is past the end.
    void Advance(long count) noexcept {
        mPosition += static_cast<unsigned long long>(count);
        mSize = (std::max)(mSize, mPosition);
    }
    /// Moves on without a look at the size.
    void MoveOn(long count) noexcept { mPosition += static_cast<unsigned long long>(count); }
    void SetSize(unsigned long long size) noexcept {
        mSize = size;
        mPosition = (std::min)(mPosition, size);
    }

    /// Reads from `data`, where the stream lies in memory: up to `count` bytes; returns how many. `buffer` may lie in `data`
    /// itself.
    long ReadFrom(const void* data, void* buffer, long count) noexcept {
        const long available = Available(count);
        if (available > 0) {
            std::memmove(buffer, static_cast<const char*>(data) + mPosition, static_cast<std::size_t>(available));
            mPosition += static_cast<unsigned long long>(available);
        }
        return available;
    }
    /// Writes into `data`, which has room. The bytes may come from `data` itself.
    void WriteTo(void* data, const void* buffer, long count) noexcept {
        std::memmove(static_cast<char*>(data) + mPosition, buffer, static_cast<std::size_t>(count));
        Advance(count);
    }

    /// What of the stream lies in memory; kept up to date by the stream.
    [[nodiscard]] const STREAMAREA& GetArea() const noexcept { return mArea; }
    void SetArea(const STREAMAREA& area) noexcept { mArea = area; }
    /// Whether some of the bytes are the stream's.
    [[nodiscard]] bool Holds(const char* from, const char* end) const noexcept {
        return std::less<>()(from, mArea.data + mArea.size) && std::less<>()(mArea.data, end);
    }
    /// The bytes from the position on that lie in memory.
    [[nodiscard]] std::string_view Ahead() const noexcept {
        const std::size_t count =
            static_cast<std::size_t>((std::min<unsigned long long>)(RoomAhead(), mSize - mPosition));
        return count != 0 ? std::string_view(AtPosition(), count) : std::string_view();
    }
    /// Moves on over `count` bytes and returns them; null, and stays, when they do not all lie in memory.
    [[nodiscard]] const char* Take(std::size_t count) noexcept {
        if (count > RoomAhead() || count > mSize - mPosition || mArea.data == nullptr) {
            return nullptr;
        }
        const char* const taken = AtPosition();
        mPosition += count;
        return taken;
    }
    /// Where `count` bytes can be written at the position, Advance() to follow; null when there is not room for all of them,
    /// and when `count` is 0: the position may then lie before the area.
    [[nodiscard]] char* Room(std::size_t count) const noexcept {
        const bool isHere = count - 1 < RoomAhead() && (!mArea.isForAppending || mPosition == mSize);
        return isHere && mArea.data != nullptr ? AtPosition() : nullptr;
    }
    /// Writes to memory; false, with nothing done, when there is not room for all. The bytes may come from there.
    [[nodiscard]] bool Put(const void* bytes, std::size_t count) noexcept {
        char* const room = Room(count);
        if (room == nullptr) {
            return false;
        }
        Copy(room, bytes, count);
        mPosition += count;
        mSize = (std::max)(mSize, mPosition);
        return true;
    }

    /// As memmove(), which costs more than the short texts that are most of what is written.
    static void Copy(char* to, const void* from, std::size_t count) noexcept {
        if (count >= 8 && count <= 16) {
            CopyEnds<std::uint64_t>(to, from, count);
        } else if (count >= 4 && count < 8) {
            CopyEnds<std::uint32_t>(to, from, count);
        } else {
            std::memmove(to, from, count);
        }
    }

private:
    /// The first and the last bytes at once, which overlap where the text is shorter than both.
    template <class Half>
    static void CopyEnds(char* to, const void* from, std::size_t count) noexcept {
        Half first = 0;
        Half last = 0;
        std::memcpy(&first, from, sizeof(Half));
        std::memcpy(&last, static_cast<const char*>(from) + count - sizeof(Half), sizeof(Half));
        std::memcpy(to, &first, sizeof(Half));
        std::memcpy(to + count - sizeof(Half), &last, sizeof(Half));
    }

    [[nodiscard]] std::size_t RoomAhead() const noexcept {
        const unsigned long long at = mPosition - mArea.start;  // wraps before the start
        return at < mArea.size ? mArea.size - static_cast<std::size_t>(at) : 0;
    }
    [[nodiscard]] char* AtPosition() const noexcept { return mArea.data + (mPosition - mArea.start); }

    unsigned long long mPosition = 0;
    unsigned long long mSize = 0;
    STREAMAREA mArea;
};

/// What every operation of a concrete stream but the queries begins with: 141 when it is closed.
template <class Stream>
void FailClosed(const Stream& stream) {
    if (stream.IsOpen() == 0) {
        FailOSErr(kErrStreamClosed);
    }
}

}  // namespace MLCore
