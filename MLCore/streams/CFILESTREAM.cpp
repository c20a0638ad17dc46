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

bool CFILESTREAM::WINDOW::Holds(unsigned long long position) const noexcept {
    return position >= start && position - start < size;
}

bool CFILESTREAM::WINDOW::Takes(unsigned long long position, std::size_t count) const noexcept {
    if (position < start || position - start > size) {
        return false;
    }
    const std::size_t at = static_cast<std::size_t>(position - start);
    const bool isJoined = pendingBegin == pendingEnd || (at >= pendingBegin && at <= pendingEnd);
    return isJoined && count <= kBufferSize - at;
}

void CFILESTREAM::WINDOW::Cut(unsigned long long fileSize) noexcept {
    const unsigned long long left = fileSize > start ? fileSize - start : 0;
    size = static_cast<std::size_t>(std::min<unsigned long long>(size, left));
    pendingEnd = std::min(pendingEnd, size);
    pendingBegin = std::min(pendingBegin, pendingEnd);
}

CFILESTREAM::CFILESTREAM(const char* path, OpenMode mode)
    : CSTREAM(mode), CURSORSTREAM(mode), mPath((FailNull(path), path)) {}

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
        FailLastError(mFile != platform::kNoFile ? 1 : 0);
        const std::int64_t size = platform::FileSize(mFile);
        try {
            FailLastError(size >= 0 ? 1 : 0);
        } catch (...) {
            Release();
            throw;
        }
        mCursor.SetSize(static_cast<unsigned long long>(size));
    }
    CURSORSTREAM::Open();
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
    FailLastError(Release() ? 1 : 0);
}

void CFILESTREAM::Flush() {
    FailClosed(*this);
    WritePending();
}

long CFILESTREAM::GetValue(void* buffer, long count) {
    FailClosed(*this);
    const long wanted = mCursor.Available(count);
    long done = 0;
    while (done < wanted) {
        const std::size_t some = ReadSome(static_cast<char*>(buffer) + done, static_cast<std::size_t>(wanted - done));
        if (some == 0) {  // somebody else cut the file
            mWindow.Cut(mCursor.GetPosition());
            mCursor.SetSize(mCursor.GetPosition());
            break;
        }
        mCursor.MoveOn(static_cast<long>(some));
        done += static_cast<long>(some);
    }
    return done;
}

void CFILESTREAM::SetValue(const void* buffer, long count) {
    FailClosed(*this);
    if (count <= 0) {
        return;
    }
    if (!Has(ReadWrite)) {
        FailOLEErr(kAccessDenied);
    }
    if (Has(Append)) {
        mCursor.SetPositionFromEnd(0);
    }
    const std::size_t length = static_cast<std::size_t>(count);
    if (!mWindow.Takes(mCursor.GetPosition(), length)) {
        WritePending();
        mWindow = {.start = mCursor.GetPosition()};
    }
    if (length > kBufferSize) {
        const std::size_t written = WriteFile(mCursor.GetPosition(), buffer, length);
        mCursor.Advance(static_cast<long>(written));
        FailLastError(written == length ? 1 : 0);
        FollowAppended();
        return;
    }
    const std::size_t at = static_cast<std::size_t>(mCursor.GetPosition() - mWindow.start);
    std::memcpy(mBuffer.get() + at, buffer, length);
    if (mWindow.pendingBegin == mWindow.pendingEnd) {
        mWindow.pendingBegin = at;
    }
    mWindow.pendingEnd = std::max(mWindow.pendingEnd, at + length);
    mWindow.size = std::max(mWindow.size, at + length);
    mCursor.Advance(count);
}

void CFILESTREAM::OffsetPosition(long delta) {
    FailClosed(*this);
    // A sum below 0 wraps far beyond the size.
    mCursor.SetPosition(mCursor.GetPosition() + static_cast<unsigned long long>(delta));
}

void CFILESTREAM::SetSize(unsigned long long size) {
    FailClosed(*this);
    if (!Has(ReadWrite) || Has(Append)) {
        FailOLEErr(kAccessDenied);
    }
    // Not written before: cutting the file may be what makes room on a full disk.
    FailLastError(platform::FileResize(mFile, size) ? 1 : 0);
    mWindow.Cut(size);
    mCursor.SetSize(size);
}

bool CFILESTREAM::Has(OpenMode flag) const { return (GetOpenMode() & flag) != 0; }

/// Gives up the file and the buffer; false, with the last error set, when the system did not write all it had taken.
bool CFILESTREAM::Release() noexcept {
    mWindow = {};
    mBuffer.reset();
    return platform::FileClose(std::exchange(mFile, platform::kNoFile));
}

/// Reads at the position: what the buffer holds, or what the file gives at once; 0 at the file's end.
std::size_t CFILESTREAM::ReadSome(char* buffer, std::size_t count) {
    const unsigned long long position = mCursor.GetPosition();
    if (!mWindow.Holds(position)) {
        WritePending();
        if (count >= kBufferSize) {
            return ReadFile(buffer, count);
        }
        const bool isNext = position == mWindow.start + mWindow.size;
        const std::size_t most = isNext ? kBufferSize : std::max(count, kFirstRead);
        mWindow = {.start = position};
        mWindow.size = ReadFile(mBuffer.get(), static_cast<std::size_t>(mCursor.Available(static_cast<long>(most))));
    }
    const std::size_t at = static_cast<std::size_t>(position - mWindow.start);
    const std::size_t some = std::min(count, mWindow.size - at);
    std::memcpy(buffer, mBuffer.get() + at, some);
    return some;
}

std::size_t CFILESTREAM::ReadFile(void* buffer, std::size_t count) {
    FailLastError(platform::FileSeek(mFile, mCursor.GetPosition()) ? 1 : 0);
    const std::int64_t got = platform::FileRead(mFile, buffer, count);
    FailLastError(got >= 0 ? 1 : 0);
    return static_cast<std::size_t>(got);
}

/// Returns how much was written; less than `count` with the last error set.
std::size_t CFILESTREAM::WriteFile(unsigned long long position, const void* buffer, std::size_t count) {
    return platform::FileSeek(mFile, position) ? platform::FileWrite(mFile, buffer, count) : 0;
}

void CFILESTREAM::WritePending() {
    if (mWindow.pendingBegin == mWindow.pendingEnd) {
        return;
    }
    mWindow.pendingBegin += WriteFile(mWindow.start + mWindow.pendingBegin, mBuffer.get() + mWindow.pendingBegin,
                                      mWindow.pendingEnd - mWindow.pendingBegin);
    FailLastError(mWindow.pendingBegin == mWindow.pendingEnd ? 1 : 0);
    FollowAppended();
}

/// Others may have appended before us: the file's end, and our bytes, lie further then.
void CFILESTREAM::FollowAppended() {
    if (!Has(Append)) {
        return;
    }
    const bool isAtEnd = mCursor.IsAtEnd();
    const std::int64_t size = platform::FileSize(mFile);
    FailLastError(size >= 0 ? 1 : 0);
    mWindow = {};
    mCursor.SetSize(static_cast<unsigned long long>(size));
    if (isAtEnd) {
        mCursor.SetPositionFromEnd(0);
    }
}

}  // namespace MLCore
