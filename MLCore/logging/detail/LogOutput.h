#pragma once

#include <MLCore/platform/File.h>

#include <cstddef>
#include <initializer_list>
#include <ios>
#include <streambuf>
#include <string>
#include <string_view>

namespace MLCore {

/// The bytes of a log file on their way: they wait until they are flushed or make 64 KiB, and go out as one piece. While
/// no file is open they go nowhere.
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

    /// Adds texts, which go out together; a line feed becomes the end of a line of the system's.
    void Append(std::initializer_list<std::string_view> texts);
    /// The same for the begin of a line, after what was added or written of another one.
    void AppendLine(std::initializer_list<std::string_view> texts);
    /// The file to come is another one.
    void Forget() noexcept { mIsCut = false; }
    /// False when the file did not take everything: the rest is dropped.
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
