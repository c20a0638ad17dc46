#pragma once

#include <MLCore/platform/File.h>

#include <cstddef>
#include <initializer_list>
#include <ios>
#include <streambuf>
#include <string>
#include <string_view>

namespace MLCore {

/// Buffers the bytes of a log file. They wait until they are flushed or make 64 KiB, and are written in one piece.
/// While no file is open they are dropped.
class LOGOUTPUT final : public std::streambuf {
public:
    LOGOUTPUT() = default;
    LOGOUTPUT(const LOGOUTPUT&) = delete;
    LOGOUTPUT& operator=(const LOGOUTPUT&) = delete;
    ~LOGOUTPUT() override;

    [[nodiscard]] bool IsOpen() const noexcept { return mFile != platform::kNoFile; }
    /// False, with platform::LastError() set, when the file cannot be opened for appending.
    [[nodiscard]] bool Open(const char* path) noexcept;
    void Close() noexcept;

    /// Adds texts, which are written together. A line feed becomes the system's end of a line.
    void Append(std::initializer_list<std::string_view> texts);
    /// The same for a text that begins a line: ends the line before if that is incomplete.
    void AppendLine(std::initializer_list<std::string_view> texts);
    /// Must be called before another file is opened: its last line is not that of the file before.
    void Forget() noexcept { mIsCut = false; }
    /// False when not everything could be written: the rest is dropped.
    bool Flush() noexcept;

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;

private:
    void MakeRoom(std::size_t count) noexcept;
    void Add(std::initializer_list<std::string_view> texts);

    platform::FILEHANDLE mFile = platform::kNoFile;
    std::string mPending;
    bool mIsCut = false;  // the file ends inside a line
};

}  // namespace MLCore
