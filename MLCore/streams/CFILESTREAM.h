#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/File.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>

#include <cstddef>
#include <memory>
#include <string>

namespace MLCore {

/// A stream over a file of any size, buffered so that small reads and writes are cheap.
///
///     CFILESTREAM report("report.csv", CSTREAM::ReadWrite | CSTREAM::Create | CSTREAM::Truncate);
///     report.Open();
///     report << "date;amount\n";
///     report.Close();  // tells whether everything was written; the destructor would not
///
/// The mode is Read, or ReadWrite with any of
/// - Create: makes the file when it is missing; with Exclusive, fails when it is there;
/// - Truncate: each Open() of the closed stream empties the file;
/// - Append: writes go to the end, whatever the position, and move it there. The size cannot be set. What is written by one
///   call and at most kBufferSize bytes long reaches the file in one piece, also between those of other processes.
///
/// The system's failures come with its code (FailLastError): 2 (on Windows also 3) not found, 5 access denied, 32 in use by
/// others, 80 exists already, 87 a mode whose flags do not go together, 112 disk full, 132 no file with positions (a pipe,
/// a terminal), 223 too large for the system, 336 a folder. MLCore/platform/File.h tells what others may do with an open
/// file.
///
/// The size is asked for at Open() and then counted. What others append later is not seen; where others cut the file,
/// reading comes short and the stream ends there.
class MLCORE_API CFILESTREAM : public CURSORSTREAM {
public:
    /// \param path  copied; narrow text as in MLCore/platform/File.h. Null fails with -100.
    explicit CFILESTREAM(const char* path, OpenMode mode = Read);
    explicit CFILESTREAM(const std::string& path, OpenMode mode = Read) : CFILESTREAM(path.c_str(), mode) {}
    /// Closes the stream; failures are lost.
    ~CFILESTREAM() override;

    [[nodiscard]] const std::string& GetPath() const noexcept { return mPath; }

    /// Opens the file at its first byte; the stream stays closed on failure. An open stream only goes back to the first byte.
    void Open() override;
    /// Writes what waits in the buffer and closes the file, also when that fails: what could not be written is lost then.
    void Close() override;
    /// Hands to the system what waits in the buffer. After a failure, the bytes that were not written wait on, and Flush()
    /// may be tried again. Fails with 141 when the stream is closed.
    void Flush();

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    /// Writes what waits in the buffer first, if it must, and fails as Flush().
    long GetValue(void* buffer, long count) override;
    /// Overwrites from the position on, or extends. Fails with code 5 in the mode Read.
    ///
    /// The bytes may wait in the buffer, so that a full disk shows in a later operation. After a failure GetPosition() tells
    /// how far it came: bytes before it are written or wait in the buffer, those after it are not taken. Up to kBufferSize
    /// bytes are taken all or none.
    void SetValue(const void* buffer, long count) override;

    /// Also beyond 2 GB.
    void OffsetPosition(long delta) override;
    /// Cuts the file, or extends it with zeros that take no space where the system can do so. Fails with code 5 in the modes
    /// Read and Append.
    void SetSize(unsigned long long size) override;

    static constexpr std::size_t kBufferSize = 64 * 1024;

private:
    /// What of the buffer is not yet written, as places in it. The buffer holds the part of the file that mCursor tells.
    struct PENDING {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool isGrowing = false;  // what lies behind the end, up to the file's, waits too
        [[nodiscard]] bool IsEmpty() const noexcept { return begin == end; }
    };

    void SetWindow(unsigned long long start, std::size_t size) noexcept {
        mCursor.SetArea({mBuffer.get(), start, size, true});
    }
    void LendRoom() noexcept;
    void TakeRoomBack() noexcept;
    [[nodiscard]] bool Takes(std::size_t count) const noexcept;
    void Forget(unsigned long long start = 0) noexcept;
    void Cut(unsigned long long fileSize) noexcept;
    [[nodiscard]] bool Has(OpenMode flag) const { return ((IsLent() ? mMode : GetOpenMode()) & flag) != 0; }
    bool Release() noexcept;
    std::size_t ReadSome(char* buffer, std::size_t count);
    std::size_t ReadFile(void* buffer, std::size_t count);
    std::size_t WriteFile(unsigned long long position, const void* buffer, std::size_t count);
    void WritePending();
    void FollowAppended();

    const std::string mPath;
    const OpenMode mMode;
    platform::FILEHANDLE mFile = platform::kNoFile;
    std::unique_ptr<char[]> mBuffer;
    PENDING mPending;
};

}  // namespace MLCore
