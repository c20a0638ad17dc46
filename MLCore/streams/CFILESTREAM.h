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
///     report.Close();  // fails when something could not be written; the destructor would not
///
/// The mode is Read, or ReadWrite with any of
/// - Create: makes the file when it is missing; with Exclusive, fails when it exists;
/// - Truncate: each Open() of the closed stream empties the file;
/// - Append: writes go to the end, whatever the position, and move the position there. The size cannot be set. The
///   bytes of one call, up to kBufferSize, reach the file in one piece, also when other processes append to it.
///
/// A failure of the system has the system's code and a text with the path and the system's reason: "cannot open
/// 'x.csv': No such file or directory". The codes (FrameworkException::GetCode()) are 2 (on Windows also 3) not found,
/// 5 access denied, 32 in use by another program, 80 exists already, 87 a mode whose flags contradict each other, 112
/// disk full, 132 a file without positions (a pipe, a terminal), 223 too large for the system, 336 a folder.
/// MLCore/platform/File.h describes what other programs may do with an open file.
///
/// Open() gets the size from the system. After that the stream counts. Bytes that another program appends later are not
/// seen. If another program cuts the file, reads return fewer bytes and the stream ends there.
class MLCORE_API CFILESTREAM : public CURSORSTREAM {
public:
    /// \param path  copied; narrow text as in MLCore/platform/File.h. Null fails with kErrNull (-100).
    explicit CFILESTREAM(const char* path, OpenMode mode = Read);
    explicit CFILESTREAM(const std::string& path, OpenMode mode = Read) : CFILESTREAM(path.c_str(), mode) {}
    /// Closes the stream. Failures are lost: call Close() first to see them.
    ~CFILESTREAM() override;

    [[nodiscard]] const std::string& GetPath() const noexcept { return mPath; }

    /// Opens the file at its first byte. After a failure the stream is closed. An open stream only goes back to the
    /// first byte.
    void Open() override;
    /// Writes the bytes that wait in the buffer and closes the file. When writing fails, the file is closed
    /// nevertheless, and those bytes are lost.
    void Close() override;
    /// Writes the bytes that wait in the buffer to the system. After a failure, those that were not written still wait,
    /// and Flush() may be called again. Fails with kErrStreamClosed (141) when the stream is closed.
    void Flush();

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    /// The raw read. If it needs the buffer, it first writes the bytes that wait there, and then fails as Flush() does.
    long GetValue(void* buffer, long count) override;
    /// The raw write: overwrites from the position on, and extends the file. Fails with code 5 (access denied) in the
    /// mode Read.
    ///
    /// The bytes may wait in the buffer, so that a full disk is noticed in a later operation. After a failure
    /// GetPosition() says how far the write came: bytes before it are written or wait in the buffer, bytes after it are
    /// not taken. Up to kBufferSize bytes are taken as a whole or not at all.
    void SetValue(const void* buffer, long count) override;

    /// Also moves beyond 2 GB.
    void OffsetPosition(long delta) override;
    /// Cuts the file, or extends it with zeros, which take no space where the system supports that. Fails with code 5
    /// in the modes Read and Append.
    void SetSize(unsigned long long size) override;

    static constexpr std::size_t kBufferSize = 64 * 1024;

private:
    /// The bytes of the buffer that are not yet written, as places in it. The buffer holds mCursor's area of the file.
    struct PENDING {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool isGrowing = false;  // the bytes from `end` to the file's end wait too
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
    [[nodiscard]] const char* GetFailurePath() const noexcept override;
    [[noreturn]] void FailSystem(const char* operation) const;
    [[noreturn]] void FailMode(const char* operation) const;
    [[nodiscard]] unsigned long long AskSize() const;
    void WriteThrough(const void* buffer, std::size_t count);
    void Keep(const void* buffer, std::size_t count) noexcept;
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
