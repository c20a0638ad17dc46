#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace MLCore::platform {

/// Files as bytes, with 64-bit sizes and offsets. Nothing is buffered here.
///
/// A path is narrow text: on Windows in the ANSI code page, elsewhere the bytes of the file system. After a failure
/// LastError() returns the reason: 2 (on Windows also 3) not found, 5 access denied, 32 in use by others, 80 already
/// exists, 87 invalid flags, offset or path, 112 disk full, 132 a file without offsets (a pipe, a terminal), 336 a
/// folder.
///
/// All functions may be called from any thread; all users of a file share its offset.

/// The path made absolute by the current folder. It stays unchanged when it is empty, when the system does not report
/// the folder, or on Windows when the ANSI code page lacks a letter of the folder.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string AbsolutePath(const char* path);

/// An open file. The caller of FileOpen owns it and must call FileClose.
using FILEHANDLE = std::intptr_t;

/// No file.
inline constexpr FILEHANDLE kNoFile = -1;

/// The end of a line of a text file on this system.
#if defined(_WIN32)
inline constexpr const char* kLineEnd = "\r\n";
#else
inline constexpr const char* kLineEnd = "\n";
#endif

/// Flags of FileOpen: kFileRead, kFileWrite or both. The others need kFileWrite.
inline constexpr unsigned int kFileRead = 0x01;
inline constexpr unsigned int kFileWrite = 0x02;
inline constexpr unsigned int kFileAppend = 0x04;     ///< writes go to the file's end, whatever the offset
inline constexpr unsigned int kFileCreate = 0x08;     ///< creates the file when it is missing
inline constexpr unsigned int kFileExclusive = 0x10;  ///< fails when the file exists; needs kFileCreate
inline constexpr unsigned int kFileTruncate = 0x20;   ///< empties the file; must not be combined with kFileAppend

/// True when FileOpen accepts this combination of flags.
[[nodiscard]] constexpr bool AreFileFlagsValid(unsigned int flags) noexcept {
    constexpr unsigned int kKnown = 0x3F;
    constexpr unsigned int kBothEnds = kFileAppend | kFileTruncate;
    return (flags & ~kKnown) == 0 && ((flags & kFileWrite) != 0 || flags == kFileRead) &&
           (flags & kBothEnds) != kBothEnds && ((flags & kFileExclusive) == 0 || (flags & kFileCreate) != 0);
}

/// Opens a file with its offset at 0. Never waits for the other end of a pipe. Child processes do not inherit the file.
///
/// On Windows, others may only read a file that is open for writing. A file that is open for reading or appending may
/// also be appended to, renamed and removed by others. So a file has one writer or several appenders, and any number of
/// readers. Other systems restrict nobody.
/// \return the file, or kNoFile. Folders are refused. A new file gets the system's usual permissions.
[[nodiscard]] MLCORE_API FILEHANDLE FileOpen(const char* path, unsigned int flags) noexcept;

/// Closes a file, also when it returns false: then the system reports a late write error.
MLCORE_API bool FileClose(FILEHANDLE file) noexcept;

/// Reads up to `count` bytes at the offset and moves it.
///
/// \return the number of bytes; 0 only at the end or for count 0; -1 on failure.
[[nodiscard]] MLCORE_API std::int64_t FileRead(FILEHANDLE file, void* buffer, std::size_t count) noexcept;

/// Writes `count` bytes at the offset, or at the end of a file opened with kFileAppend, and moves the offset after
/// them.
///
/// Up to one GiB is passed to the system in one piece. A pipe without a reader and a file at its limit cause failures,
/// not signals.
/// \return the number of bytes written: `count`, or less after a failure.
[[nodiscard]] MLCORE_API std::size_t FileWrite(FILEHANDLE file, const void* buffer, std::size_t count) noexcept;

/// Writes as FileWrite does to a file opened with kFileAppend. Pieces of up to one GiB that several processes append by
/// it do not mix. For one file it must be called by one thread at a time. It may wait for a lock.
[[nodiscard]] MLCORE_API std::size_t FileAppend(FILEHANDLE file, const void* buffer, std::size_t count) noexcept;

/// Moves the offset, counted from the beginning of the file; it may lie beyond the end.
[[nodiscard]] MLCORE_API bool FileSeek(FILEHANDLE file, std::uint64_t offset) noexcept;

/// The size in bytes, or -1 on failure. The offset may change.
[[nodiscard]] MLCORE_API std::int64_t FileSize(FILEHANDLE file) noexcept;

/// Cuts the file or lengthens it by zeros. Needs kFileWrite, on Windows without kFileAppend. The offset does not
/// change.
[[nodiscard]] MLCORE_API bool FileResize(FILEHANDLE file, std::uint64_t size) noexcept;

/// Removes the file of this path. Fails on Windows while others have it open for writing.
[[nodiscard]] MLCORE_API bool FileRemove(const char* path) noexcept;

}  // namespace MLCore::platform
