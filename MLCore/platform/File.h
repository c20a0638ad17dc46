#pragma once

#include <MLCore/platform/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace MLCore::platform {

/// Files as bytes, with 64-bit sizes and offsets. Nothing is buffered here.
///
/// A path is narrow text: on Windows in the ANSI code page, elsewhere the bytes of the file system. After a failure
/// LastError() tells why: 2 (on Windows also 3) not found, 5 access denied, 32 in use by others, 80 exists already, 87
/// invalid flags, offset or path, 112 disk full, 132 no offsets in it (a pipe, a terminal), 336 a folder.
///
/// All functions may be called from any thread; a file's offset is one for all of its users.

/// The path made absolute by the current folder, or as it stands when it is empty, the system does not tell the folder, or on
/// Windows the ANSI code page lacks a letter of it.
/// \throws std::bad_alloc
[[nodiscard]] MLCORE_API std::string AbsolutePath(const char* path);

/// An open file, owned by whoever opened it until FileClose.
using FILEHANDLE = std::intptr_t;

/// No file.
inline constexpr FILEHANDLE kNoFile = -1;

/// What ends a line of a text file on this system.
#if defined(_WIN32)
inline constexpr const char* kLineEnd = "\r\n";
#else
inline constexpr const char* kLineEnd = "\n";
#endif

/// How to open a file: kFileRead, kFileWrite or both. The others need kFileWrite.
inline constexpr unsigned int kFileRead = 0x01;
inline constexpr unsigned int kFileWrite = 0x02;
inline constexpr unsigned int kFileAppend = 0x04;     ///< writes go to the file's end, whatever the offset
inline constexpr unsigned int kFileCreate = 0x08;     ///< makes the file when it is missing
inline constexpr unsigned int kFileExclusive = 0x10;  ///< fails when the file is there; needs kFileCreate
inline constexpr unsigned int kFileTruncate = 0x20;   ///< empties the file; does not go with kFileAppend

/// Whether the flags go together.
[[nodiscard]] constexpr bool AreFileFlagsValid(unsigned int flags) noexcept {
    constexpr unsigned int kKnown = 0x3F;
    constexpr unsigned int kBothEnds = kFileAppend | kFileTruncate;
    return (flags & ~kKnown) == 0 && ((flags & kFileWrite) != 0 || flags == kFileRead) &&
           (flags & kBothEnds) != kBothEnds && ((flags & kFileExclusive) == 0 || (flags & kFileCreate) != 0);
}

/// Opens a file with its offset at 0. Never waits for the other end of a pipe. Programs started later do not inherit it.
///
/// On Windows, others may only read a file that is open for writing; one that is open for reading or appending they may
/// also append to, rename and remove. So there is one writer or several appenders there, and any number of readers. Other
/// systems keep nobody out.
/// \return the file, or kNoFile. Folders are refused. A new file gets the system's usual rights.
[[nodiscard]] MLCORE_API FILEHANDLE FileOpen(const char* path, unsigned int flags) noexcept;

/// Closes a file; it is closed in any case. False when the system reports a late write error.
MLCORE_API bool FileClose(FILEHANDLE file) noexcept;

/// Reads up to `count` bytes at the offset and moves it.
///
/// \return the number of bytes; 0 only at the end or for count 0; -1 on failure.
[[nodiscard]] MLCORE_API std::int64_t FileRead(FILEHANDLE file, void* buffer, std::size_t count) noexcept;

/// Writes `count` bytes at the offset, or at the end of a file opened with kFileAppend, and moves the offset behind them.
///
/// Up to a GiB goes to the system in one piece. A pipe that nobody reads any more and a file at its limit are failures, not
/// signals.
/// \return the number of bytes written: `count`, or less after a failure.
[[nodiscard]] MLCORE_API std::size_t FileWrite(FILEHANDLE file, const void* buffer, std::size_t count) noexcept;

/// FileWrite for a file opened with kFileAppend: what several processes append by it does not mix, up to a GiB a piece. One
/// thread at a time for a file: it may wait for a lock.
[[nodiscard]] MLCORE_API std::size_t FileAppend(FILEHANDLE file, const void* buffer, std::size_t count) noexcept;

/// Moves the offset, counted from the file's begin; it may lie beyond the end.
[[nodiscard]] MLCORE_API bool FileSeek(FILEHANDLE file, std::uint64_t offset) noexcept;

/// The size in bytes, or -1 on failure. The offset may change.
[[nodiscard]] MLCORE_API std::int64_t FileSize(FILEHANDLE file) noexcept;

/// Cuts the file or lengthens it by zeros; needs kFileWrite, on Windows without kFileAppend. The offset stays.
[[nodiscard]] MLCORE_API bool FileResize(FILEHANDLE file, std::uint64_t size) noexcept;

/// Removes a file by its name; on Windows not while others have it open for writing.
[[nodiscard]] MLCORE_API bool FileRemove(const char* path) noexcept;

}  // namespace MLCore::platform
