#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CRANDOMIOSTREAM.h>
#include <MLCore/streams/STREAMCURSOR.h>

namespace MLCore {

/// What the streams of both directions and of random access have in common when their size and position are all there is to
/// know.
class MLCORE_API CURSORSTREAM : public CRANDOMIOSTREAM {
public:
    ~CURSORSTREAM() override;

    using CISTREAM::GetValue;
    /// At the first byte, with the size kept.
    void Open() override;
    [[nodiscard]] int IsEnd() const override;
    long GetValue(COSTREAM& out) override;

    [[nodiscard]] unsigned long long GetPosition() const override;
    void SetPosition(unsigned long long position) override;
    void SetPositionFromEnd(unsigned long long distance) override;
    void OffsetPosition(long delta) override;
    [[nodiscard]] unsigned long long GetSize() const override;

protected:
    explicit CURSORSTREAM(OpenMode mode, unsigned long long size = 0);

    STREAMCURSOR mCursor;
};

}  // namespace MLCore
