#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CRANDOMIOSTREAM.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>

#include <typeinfo>

namespace MLCore {

/// What the streams of both directions and of random access have in common when their size and position are all there is to
/// know.
class MLCORE_API CURSORSTREAM : public CRANDOMIOSTREAM {
public:
    ~CURSORSTREAM() override;

    using CISTREAM::GetValue;
    /// At the first byte, with the size kept.
    void Open() override;
    void Close() override;
    [[nodiscard]] int IsEnd() const override;
    long GetValue(COSTREAM& out) override;

    [[nodiscard]] unsigned long long GetPosition() const override;
    void SetPosition(unsigned long long position) override;
    void SetPositionFromEnd(unsigned long long distance) override;
    void OffsetPosition(long delta) override;
    [[nodiscard]] unsigned long long GetSize() const override;

protected:
    explicit CURSORSTREAM(OpenMode mode, unsigned long long size = 0);

    /// Called by Open(): until Close(), typed reads and typed writes are done in the cursor's memory.
    /// Only for an object of the class `own` itself: one derived from it may have raw operations of its own.
    void Lend(const std::type_info& own) noexcept;
    [[nodiscard]] bool IsLent() const noexcept { return CISTREAM::mLent != nullptr; }
    /// IsOpen(), which nobody can have overridden when the stream is lent.
    [[nodiscard]] bool IsReady() const { return IsLent() || IsOpen() != 0; }
    void FailNotReady() const {
        if (!IsReady()) {
            FailOSErr(kErrStreamClosed);
        }
    }

    mutable STREAMCURSOR mCursor;  // what lies in memory changes while nothing else does
};

}  // namespace MLCore
