#pragma once

#include <MLCore/platform/Export.h>

#include <cstdint>

namespace MLCore {

/// The base of all byte streams: the open mode, and whether the stream is open. CISTREAM and COSTREAM have it as a
/// virtual base, so that a stream of both directions has it once.
///
/// A stream is created closed. A stream and its decorators, readers and writers must be used by one thread at a time.
class MLCORE_API CSTREAM {
public:
    /// Read or ReadWrite; for files ReadWrite with any of the other flags, which CFILESTREAM describes.
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
    /// The mode, which is fixed when the stream is made.
    [[nodiscard]] virtual OpenMode GetOpenMode() const;
    /// 1 when the stream is open.
    [[nodiscard]] virtual int IsOpen() const;
    /// Opens the stream. Concrete streams go to their first byte, also when they are open already.
    virtual void Open();
    /// Closes the stream. Closing a closed stream does nothing.
    virtual void Close();

    CSTREAM(const CSTREAM&) = delete;
    CSTREAM& operator=(const CSTREAM&) = delete;

protected:
    /// Called by the most derived class, as for every virtual base. In a class that does not call it, the constructors
    /// of CISTREAM and COSTREAM set the mode.
    explicit CSTREAM(OpenMode mode = Read) noexcept;

private:
    friend class CISTREAM;
    friend class COSTREAM;

    OpenMode mOpenMode;
    std::int32_t mIsOpen = 0;
};

}  // namespace MLCore
