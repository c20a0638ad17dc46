#pragma once

#include <MLCore/platform/Export.h>

#include <cstdint>

namespace MLCore {

/// What all byte streams share: how they were made to be opened, and whether they are open. CISTREAM and COSTREAM have it
/// as a virtual base, so a stream of both directions has it once.
///
/// A stream is created closed. One thread at a time uses a stream together with its decorators, readers and writers.
class MLCORE_API CSTREAM {
public:
    /// Read or ReadWrite, and for files any of the other flags (CFILESTREAM tells them).
    enum OpenMode : std::int32_t {
        Read = 0,
        ReadWrite = 1,
        Create = 2,
        Truncate = 4,
        Append = 8,
        Exclusive = 16,
    };
    friend constexpr OpenMode operator|(OpenMode left, OpenMode right) noexcept {
        return static_cast<OpenMode>(static_cast<std::int32_t>(left) | static_cast<std::int32_t>(right));
    }

    virtual ~CSTREAM();
    /// Fixed when the stream is made.
    [[nodiscard]] virtual OpenMode GetOpenMode() const;
    [[nodiscard]] virtual int IsOpen() const;
    virtual void Open();
    virtual void Close();

    CSTREAM(const CSTREAM&) = delete;
    CSTREAM& operator=(const CSTREAM&) = delete;

protected:
    /// The most derived class calls it, as for every virtual base; one that does not leaves the mode to the constructors of
    /// CISTREAM and COSTREAM.
    explicit CSTREAM(OpenMode mode = Read) noexcept;

private:
    friend class CISTREAM;
    friend class COSTREAM;

    OpenMode mOpenMode;
    std::int32_t mIsOpen = 0;
};

}  // namespace MLCore
