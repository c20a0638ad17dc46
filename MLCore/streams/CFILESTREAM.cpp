#include <MLCore/streams/CFILESTREAM.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace MLCore {

namespace {

/// The system's code for what its user has no right to do.
constexpr unsigned int kAccessDenied = 5;

/// What is read at first where reading does not go on: most often little of it is wanted.
constexpr std::size_t kFirstRead = 4096;

unsigned int FileFlags(CSTREAM::OpenMode mode) noexcept {
    constexpr struct {
        CSTREAM::OpenMode mode;
        unsigned int flag;
    } kRows[] = {
        {CSTREAM::ReadWrite, platform::kFileWrite},     {CSTREAM::Create, platform::kFileCreate},
        {CSTREAM::Truncate, platform::kFileTruncate},   {CSTREAM::Append, platform::kFileAppend},
        {CSTREAM::Exclusive, platform::kFileExclusive},
    };
    unsigned int flags = platform::kFileRead;
    int unknown = mode;
    for (const auto& row : kRows) {
        flags |= (mode & row.mode) != 0 ? row.flag : 0;
        unknown &= ~row.mode;
    }
    return unknown == 0 ? flags : 0;
}

}  // namespace

/// Whether a write at the position may wait in the buffer, with what waits there already.
inline bool CFILESTREAM::Takes(std::size_t count) const noexcept {
    const STREAMAREA& window = mCursor.GetArea();
    const unsigned long long at = mCursor.GetPosition() - window.start;  // wraps before the start
    const bool isJoined = mPending.IsEmpty() || (at >= mPending.begin && at <= mPending.end);
    return at <= window.size && isJoined && count <= kBufferSize - at;
}

/// The most frequent writes are small, at the file's end, behind what waits already: they get the rest of the buffer.
inline void CFILESTREAM::LendRoom() noexcept {
    const unsigned long long start = mCursor.GetArea().start;
    mPending.isGrowing = IsLent() && mCursor.GetSize() == start + mPending.end;
    if (mPending.isGrowing) {
        SetWindow(start, kBufferSize);
    }
}

inline void CFILESTREAM::TakeRoomBack() noexcept {
    if (std::exchange(mPending.isGrowing, false)) {
        const unsigned long long start = mCursor.GetArea().start;
        mPending.end = static_cast<std::size_t>(mCursor.GetSize() - start);
        SetWindow(start, mPending.end);
    }
}

/// Empties the buffer, of which nothing waits, for what begins at `start`.
void CFILESTREAM::Forget(unsigned long long start) noexcept {
    SetWindow(start, 0);
    mPending = {};
}

/// Drops what lies behind the file's new end.
void CFILESTREAM::Cut(unsigned long long fileSize) noexcept {
    TakeRoomBack();
    const STREAMAREA& window = mCursor.GetArea();
    const unsigned long long left = fileSize > window.start ? fileSize - window.start : 0;
    SetWindow(window.start, static_cast<std::size_t>(std::min<unsigned long long>(window.size, left)));
    mPending.end = std::min(mPending.end, mCursor.GetArea().size);
    mPending.begin = std::min(mPending.begin, mPending.end);
}

CFILESTREAM::CFILESTREAM(const char* path, OpenMode mode)
    : CSTREAM(mode), CURSORSTREAM(mode), mPath((FailNull(path), path)), mMode(mode) {}

CFILESTREAM::~CFILESTREAM() {
    try {
        CFILESTREAM::Close();
    } catch (...) {
        // Whoever wants to know closes the stream before.
    }
}

void CFILESTREAM::Open() {
    if (IsOpen() == 0) {
        mBuffer.reset(new (std::nothrow) char[kBufferSize]);
        FailNull(mBuffer.get());
        mFile = platform::FileOpen(mPath.c_str(), FileFlags(GetOpenMode()));
        FailLastError(mFile != platform::kNoFile);
        const std::int64_t size = platform::FileSize(mFile);
        try {
            FailLastError(size >= 0);
        } catch (...) {
            Release();
            throw;
        }
        mCursor.SetSize(static_cast<unsigned long long>(size));
    }
    CURSORSTREAM::Open();
    Lend(typeid(CFILESTREAM));
}

void CFILESTREAM::Close() {
    if (IsOpen() == 0) {
        return;
    }
    CURSORSTREAM::Close();
    try {
        WritePending();
    } catch (...) {
        Release();
        throw;
    }
    FailLastError(Release());
}

void CFILESTREAM::Flush() {
    FailNotReady();
    WritePending();
}

long CFILESTREAM::GetValue(void* buffer, long count) {
    FailNotReady();
    FailNullBuffer(buffer, count);
    const long wanted = mCursor.Available(count);
    long done = 0;
    while (done < wanted) {
        const std::size_t some = ReadSome(static_cast<char*>(buffer) + done, static_cast<std::size_t>(wanted - done));
        if (some == 0) {  // somebody else cut the file
            Cut(mCursor.GetPosition());
            mCursor.SetSize(mCursor.GetPosition());
            break;
        }
        mCursor.MoveOn(static_cast<long>(some));
        done += static_cast<long>(some);
    }
    return done;
}

void CFILESTREAM::SetValue(const void* buffer, long count) {
    FailNotReady();
    FailNullBuffer(buffer, count);
    if (count <= 0 || mCursor.Put(buffer, static_cast<std::size_t>(count))) {
        return;
    }
    TakeRoomBack();
    if (!Has(ReadWrite)) {
        FailOLEErr(kAccessDenied);
    }
    if (Has(Append)) {
        mCursor.SetPositionFromEnd(0);
    }
    const std::size_t length = static_cast<std::size_t>(count);
    if (!Takes(length)) {
        WritePending();
        Forget(mCursor.GetPosition());
    }
    if (length > kBufferSize) {
        const std::size_t written = WriteFile(mCursor.GetPosition(), buffer, length);
        mCursor.Advance(static_cast<long>(written));
        FailLastError(written == length);
        FollowAppended();
        return;
    }
    const STREAMAREA& window = mCursor.GetArea();
    const std::size_t at = static_cast<std::size_t>(mCursor.GetPosition() - window.start);
    std::memcpy(mBuffer.get() + at, buffer, length);
    mPending.begin = mPending.IsEmpty() ? at : mPending.begin;
    mPending.end = std::max(mPending.end, at + length);
    SetWindow(window.start, std::max(window.size, at + length));
    mCursor.Advance(count);
    LendRoom();
}

void CFILESTREAM::OffsetPosition(long delta) {
    FailNotReady();
    mCursor.OffsetFar(delta);
}

void CFILESTREAM::SetSize(unsigned long long size) {
    FailNotReady();
    if (!Has(ReadWrite) || Has(Append)) {
        FailOLEErr(kAccessDenied);
    }
    // Not written before: cutting the file may be what makes room on a full disk.
    FailLastError(platform::FileResize(mFile, size));
    Cut(size);
    mCursor.SetSize(size);
}

/// Gives up the file and the buffer; false, with the last error set, when the system did not write all it had taken.
bool CFILESTREAM::Release() noexcept {
    mBuffer.reset();
    Forget();
    return platform::FileClose(std::exchange(mFile, platform::kNoFile));
}

/// Reads at the position: what the buffer holds, or what the file gives at once; 0 at the file's end.
std::size_t CFILESTREAM::ReadSome(char* buffer, std::size_t count) {
    if (mCursor.Ahead().empty()) {
        WritePending();
        if (count >= kBufferSize) {
            return ReadFile(buffer, count);
        }
        const unsigned long long position = mCursor.GetPosition();
        const bool isNext = position == mCursor.GetArea().start + mCursor.GetArea().size;
        const std::size_t most = isNext ? kBufferSize : std::max(count, kFirstRead);
        Forget(position);
        SetWindow(position,
                  ReadFile(mBuffer.get(), static_cast<std::size_t>(mCursor.Available(static_cast<long>(most)))));
    }
    const std::string_view ahead = mCursor.Ahead().substr(0, count);
    std::copy(ahead.begin(), ahead.end(), buffer);
    return ahead.size();
}

std::size_t CFILESTREAM::ReadFile(void* buffer, std::size_t count) {
    FailLastError(platform::FileSeek(mFile, mCursor.GetPosition()));
    const std::int64_t got = platform::FileRead(mFile, buffer, count);
    FailLastError(got >= 0);
    return static_cast<std::size_t>(got);
}

/// Returns how much was written; less than `count` with the last error set.
std::size_t CFILESTREAM::WriteFile(unsigned long long position, const void* buffer, std::size_t count) {
    if (!platform::FileSeek(mFile, position)) {
        return 0;
    }
    return Has(Append) ? platform::FileAppend(mFile, buffer, count) : platform::FileWrite(mFile, buffer, count);
}

void CFILESTREAM::WritePending() {
    TakeRoomBack();
    if (mPending.IsEmpty()) {
        return;
    }
    mPending.begin += WriteFile(mCursor.GetArea().start + mPending.begin, mBuffer.get() + mPending.begin,
                                mPending.end - mPending.begin);
    FailLastError(mPending.IsEmpty());
    FollowAppended();
}

/// Others may have appended before us: the file's end, and our bytes, lie further then.
void CFILESTREAM::FollowAppended() {
    if (!Has(Append)) {
        return;
    }
    const bool isAtEnd = mCursor.IsAtEnd();
    const std::int64_t size = platform::FileSize(mFile);
    FailLastError(size >= 0);
    Forget();
    mCursor.SetSize(static_cast<unsigned long long>(size));
    if (isAtEnd) {
        mCursor.SetPositionFromEnd(0);
    }
}

}  // namespace MLCore
