#include <MLCore/platform/File.h>

#include <MLCore/platform/WinTypes.h>
#include <MLCore/platform/common/AnsiPath.h>

#include <algorithm>

namespace MLCore::platform {

namespace {

/// The system counts in 32 bits.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

/// The compiler's headers do not all name it.
constexpr DWORD kErrorDirectoryNotSupported = 336;

bool Fail(DWORD code) noexcept {
    SetLastError(code);
    return false;
}

HANDLE Handle(FILEHANDLE file) noexcept { return reinterpret_cast<HANDLE>(file); }

/// Has a size, and offsets.
bool IsPlainFile(HANDLE file) noexcept { return GetFileType(file) == FILE_TYPE_DISK; }

DWORD Access(unsigned int flags) noexcept {
    // Who cannot read cannot lock.
    const DWORD writing = (flags & kFileAppend) != 0 ? FILE_APPEND_DATA | FILE_READ_DATA : GENERIC_WRITE;
    return ((flags & kFileRead) != 0 ? GENERIC_READ : 0U) | ((flags & kFileWrite) != 0 ? writing : 0U);
}

DWORD Sharing(unsigned int flags) noexcept {
    const bool isOnlyWriter = (flags & kFileWrite) != 0 && (flags & kFileAppend) == 0;
    return isOnlyWriter ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
}

DWORD Disposition(unsigned int flags) noexcept {
    if ((flags & kFileExclusive) != 0) {
        return CREATE_NEW;
    }
    return (flags & kFileCreate) != 0 ? OPEN_ALWAYS : OPEN_EXISTING;
}

/// What the system refuses as "access denied" when it is a folder.
void TellFolder(const char* path) noexcept {
    const DWORD code = GetLastError();
    const DWORD attributes = code == ERROR_ACCESS_DENIED ? GetFileAttributesA(path) : INVALID_FILE_ATTRIBUTES;
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    SetLastError(isFolder ? kErrorDirectoryNotSupported : code);
}

}  // namespace

std::string AbsolutePath(const char* path) {
    const std::wstring given = WidePath(path);
    std::wstring absolute(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length = GetFullPathNameW(given.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
    if (length >= absolute.size()) {
        return path;
    }
    const std::string ansi = AnsiPath(std::wstring_view(absolute).substr(0, length));
    return ansi.empty() ? path : ansi;
}

FILEHANDLE FileOpen(const char* path, unsigned int flags) noexcept {
    if (path == nullptr || !AreFileFlagsValid(flags)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return kNoFile;
    }
    const HANDLE handle =
        CreateFileA(path, Access(flags), Sharing(flags), nullptr, Disposition(flags), FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        TellFolder(path);
        return kNoFile;
    }
    const FILEHANDLE file = reinterpret_cast<FILEHANDLE>(handle);
    // The system's own way to empty a file would change its attributes, and refuses hidden files.
    if ((flags & kFileTruncate) != 0 && IsPlainFile(handle) && !FileResize(file, 0)) {
        const DWORD code = GetLastError();
        CloseHandle(handle);
        SetLastError(code);
        return kNoFile;
    }
    return file;
}

bool FileClose(FILEHANDLE file) noexcept { return CloseHandle(Handle(file)) != 0; }

std::int64_t FileRead(FILEHANDLE file, void* buffer, std::size_t count) noexcept {
    DWORD got = 0;
    if (ReadFile(Handle(file), buffer, static_cast<DWORD>(std::min(count, kMostAtOnce)), &got, nullptr) == 0) {
        return GetLastError() == ERROR_BROKEN_PIPE ? 0 : -1;  // the other end of a pipe was closed
    }
    return got;
}

std::size_t FileWrite(FILEHANDLE file, const void* buffer, std::size_t count) noexcept {
    const char* const bytes = static_cast<const char*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        const DWORD some = static_cast<DWORD>(std::min(count - done, kMostAtOnce));
        DWORD written = 0;
        const bool isWritten = WriteFile(Handle(file), bytes + done, some, &written, nullptr) != 0;
        done += written;
        if (!isWritten) {
            break;
        }
        if (written == 0) {
            SetLastError(ERROR_IO_DEVICE);
            break;
        }
    }
    return done;
}

std::size_t FileAppend(FILEHANDLE file, const void* buffer, std::size_t count) noexcept {
    // Not every file system finds the end and writes there in one step, so appending processes take turns. The lock is
    // on a byte that no file reaches, so it excludes nobody else. A file system without locks is used without them.
    OVERLAPPED range = {};
    range.OffsetHigh = 0x7FFFFFFE;
    const bool isLocked = LockFileEx(Handle(file), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &range) != 0;
    const std::size_t written = FileWrite(file, buffer, count);
    if (isLocked) {
        const DWORD code = GetLastError();
        UnlockFileEx(Handle(file), 0, 1, 0, &range);
        SetLastError(code);
    }
    return written;
}

bool FileSeek(FILEHANDLE file, std::uint64_t offset) noexcept {
    if (offset > INT64_MAX) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (!IsPlainFile(Handle(file))) {
        return Fail(ERROR_SEEK_ON_DEVICE);
    }
    LARGE_INTEGER distance = {};
    distance.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(Handle(file), distance, nullptr, FILE_BEGIN) != 0;
}

std::int64_t FileSize(FILEHANDLE file) noexcept {
    LARGE_INTEGER size = {};
    if (!IsPlainFile(Handle(file))) {
        SetLastError(ERROR_SEEK_ON_DEVICE);
        return -1;
    }
    return GetFileSizeEx(Handle(file), &size) != 0 ? size.QuadPart : -1;
}

bool FileResize(FILEHANDLE file, std::uint64_t size) noexcept {
    if (size > INT64_MAX) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    FILE_END_OF_FILE_INFO end = {};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return SetFileInformationByHandle(Handle(file), FileEndOfFileInfo, &end, sizeof(end)) != 0;
}

bool FileRemove(const char* path) noexcept {
    if (path == nullptr) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    const bool isRemoved = DeleteFileA(path) != 0;
    if (!isRemoved) {
        TellFolder(path);
    }
    return isRemoved;
}

}  // namespace MLCore::platform
