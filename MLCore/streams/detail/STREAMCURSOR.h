#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

namespace MLCore {

/// A part of a stream that lies in memory: `size` bytes at `data`, from the position `start` of the stream on. The
/// bytes after the stream's end are only room.
struct STREAMAREA {
    char* data = nullptr;
    unsigned long long start = 0;
    std::size_t size = 0;
    bool isForAppending = false;  ///< the bytes before the stream's end must not be overwritten
};

/// Fails with kErrNull (-100) for a null buffer, unless no byte is moved. `purpose`: "read into", "write from".
inline void RequireBuffer(const void* buffer, long count, const char* purpose) {
    if (buffer == nullptr && count > 0) [[unlikely]] {
        FailWith(kErrNull, "the buffer to ", purpose, " is null, wanted one of ", count, " bytes");
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
    [[nodiscard]] long Available(long count) const noexcept;

    void Rewind() noexcept { mPosition = 0; }
    /// These fail with kErrStreamEnd (-110) outside 0..size, and leave the position.
    void SetPosition(unsigned long long position);
    void SetPositionFromEnd(unsigned long long distance);
    /// By the rule of CRANDOMSTREAM::OffsetPosition(), which ends at 2 GB.
    void Offset(long delta);
    /// Without that end.
    void OffsetFar(long delta);
    /// After a transfer of `count` bytes: moves on, and extends the size when that is past the end.
    void Advance(long count) noexcept;
    /// Moves on without a look at the size.
    void MoveOn(long count) noexcept { mPosition += static_cast<unsigned long long>(count); }
    /// Moves on over bytes that lie in memory.
    void Pass(std::size_t count) noexcept { mPosition += count; }
    void SetSize(unsigned long long size) noexcept;

    /// Reads from `data`, where the stream lies in memory: up to `count` bytes; returns how many. `buffer` may lie in
    /// `data` itself.
    long ReadFrom(const void* data, void* buffer, long count) noexcept;
    /// Writes into `data`, which has room. The bytes may come from `data` itself.
    void WriteTo(void* data, const void* buffer, long count) noexcept;

    /// The part of the stream that lies in memory. The stream keeps it up to date.
    [[nodiscard]] const STREAMAREA& GetArea() const noexcept { return mArea; }
    void SetArea(const STREAMAREA& area) noexcept { mArea = area; }
    /// Whether some of the bytes are the stream's.
    [[nodiscard]] bool Holds(const char* from, const char* end) const noexcept;
    /// The bytes from the position on that lie in memory.
    [[nodiscard]] std::string_view Ahead() const noexcept;
    /// Moves on over `count` bytes and returns them; null, and stays, when they do not all lie in memory.
    [[nodiscard]] const char* Take(std::size_t count) noexcept;
    /// Where `count` bytes can be written at the position, to be followed by Advance(); null when there is not room for
    /// all of them, and when `count` is 0: the position may then lie before the area.
    [[nodiscard]] char* Room(std::size_t count) const noexcept;
    /// Writes to memory; false, with nothing done, when there is not room for all. The bytes may come from there.
    [[nodiscard]] bool Put(const void* bytes, std::size_t count) noexcept;

    /// As memmove(), which costs more than the short texts that most writes are.
    static void Copy(char* to, const void* from, std::size_t count) noexcept;

private:
    template <class Half>
    static void CopyEnds(char* to, const void* from, std::size_t count) noexcept;

    [[nodiscard]] std::size_t RoomAhead() const noexcept;
    [[nodiscard]] char* AtPosition() const noexcept { return mArea.data + (mPosition - mArea.start); }

    unsigned long long mPosition = 0;
    unsigned long long mSize = 0;
    STREAMAREA mArea;
};

inline long STREAMCURSOR::Available(long count) const noexcept {
    return IsAtEnd() || count <= 0
               ? 0L
               : static_cast<long>((std::min)(static_cast<unsigned long long>(count), mSize - mPosition));
}

inline void STREAMCURSOR::SetPosition(unsigned long long position) {
    Require(position <= mSize, kErrStreamEnd, "cannot go to byte ", position, ": the stream has ", mSize, " bytes");
    mPosition = position;
}

inline void STREAMCURSOR::SetPositionFromEnd(unsigned long long distance) {
    Require(distance <= mSize, kErrStreamEnd, "cannot go to ", distance, " bytes before the end: the stream has ",
            mSize, " bytes");
    mPosition = mSize - distance;
}

inline void STREAMCURSOR::Offset(long delta) {
    Require(static_cast<std::int32_t>(mPosition + static_cast<unsigned long long>(delta)) >= 0, kErrStreamEnd,
            "cannot move by ", delta, " bytes from byte ", mPosition, ": wanted a position from 0 to 2147483647");
    OffsetFar(delta);
}

inline void STREAMCURSOR::OffsetFar(long delta) {
    const unsigned long long position =
        mPosition + static_cast<unsigned long long>(delta);  // below 0 it wraps beyond the size
    Require(position <= mSize, kErrStreamEnd, "cannot move by ", delta, " bytes from byte ", mPosition,
            ": the stream has ", mSize, " bytes");
    mPosition = position;
}

inline void STREAMCURSOR::Advance(long count) noexcept {
    mPosition += static_cast<unsigned long long>(count);
    mSize = (std::max)(mSize, mPosition);
}

inline void STREAMCURSOR::SetSize(unsigned long long size) noexcept {
    mSize = size;
    mPosition = (std::min)(mPosition, size);
}

inline long STREAMCURSOR::ReadFrom(const void* data, void* buffer, long count) noexcept {
    const long available = Available(count);
    if (available > 0) {
        std::memmove(buffer, static_cast<const char*>(data) + mPosition, static_cast<std::size_t>(available));
        mPosition += static_cast<unsigned long long>(available);
    }
    return available;
}

inline void STREAMCURSOR::WriteTo(void* data, const void* buffer, long count) noexcept {
    std::memmove(static_cast<char*>(data) + mPosition, buffer, static_cast<std::size_t>(count));
    Advance(count);
}

inline bool STREAMCURSOR::Holds(const char* from, const char* end) const noexcept {
    return std::less<>()(from, mArea.data + mArea.size) && std::less<>()(mArea.data, end);
}

inline std::string_view STREAMCURSOR::Ahead() const noexcept {
    const std::size_t count = static_cast<std::size_t>((std::min<unsigned long long>)(RoomAhead(), mSize - mPosition));
    return count != 0 ? std::string_view(AtPosition(), count) : std::string_view();
}

inline const char* STREAMCURSOR::Take(std::size_t count) noexcept {
    if (count > RoomAhead() || count > mSize - mPosition || mArea.data == nullptr) {
        return nullptr;
    }
    const char* const taken = AtPosition();
    mPosition += count;
    return taken;
}

inline char* STREAMCURSOR::Room(std::size_t count) const noexcept {
    const bool isHere = count - 1 < RoomAhead() && (!mArea.isForAppending || mPosition == mSize);
    return isHere && mArea.data != nullptr ? AtPosition() : nullptr;
}

inline bool STREAMCURSOR::Put(const void* bytes, std::size_t count) noexcept {
    char* const room = Room(count);
    if (room == nullptr) {
        return false;
    }
    Copy(room, bytes, count);
    mPosition += count;
    mSize = (std::max)(mSize, mPosition);
    return true;
}

inline void STREAMCURSOR::Copy(char* to, const void* from, std::size_t count) noexcept {
    if (count >= 8 && count <= 16) {
        CopyEnds<std::uint64_t>(to, from, count);
    } else if (count >= 4 && count < 8) {
        CopyEnds<std::uint32_t>(to, from, count);
    } else {
        std::memmove(to, from, count);
    }
}

/// The first and the last bytes, which overlap where the text is shorter than both.
template <class Half>
void STREAMCURSOR::CopyEnds(char* to, const void* from, std::size_t count) noexcept {
    Half first = 0;
    Half last = 0;
    std::memcpy(&first, from, sizeof(Half));
    std::memcpy(&last, static_cast<const char*>(from) + count - sizeof(Half), sizeof(Half));
    std::memcpy(to, &first, sizeof(Half));
    std::memcpy(to + count - sizeof(Half), &last, sizeof(Half));
}

inline std::size_t STREAMCURSOR::RoomAhead() const noexcept {
    const unsigned long long at = mPosition - mArea.start;  // wraps before the start
    return at < mArea.size ? mArea.size - static_cast<std::size_t>(at) : 0;
}

}  // namespace MLCore
