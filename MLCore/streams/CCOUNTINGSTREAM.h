#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>

namespace MLCore {

/// A stream that stores nothing and only counts. Write a value to it, and GetSize() says how many bytes the value
/// takes.
///
/// A read leaves its destination unchanged (texts become zero bytes), and its buffer may be null. On purpose, a read
/// moves the position by the requested count, and so it can pass the end. IsEnd() is 1 exactly at the end: after a read
/// past the end it stays 0 until the position is set back. Do not copy the stream through a decorator: the copy would
/// never end. The stream's own GetValue(COSTREAM&) stops at the end.
class MLCORE_API CCOUNTINGSTREAM : public CURSORSTREAM {
public:
    CCOUNTINGSTREAM();
    ~CCOUNTINGSTREAM() override;

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    [[nodiscard]] int IsEnd() const override;
    /// Writes a zero byte for each byte that is left, and returns their number.
    long GetValue(COSTREAM& out) override;
    /// Moves the position by `count` and returns how many of these bytes lie before the end.
    long GetValue(void* buffer, long count) override;
    void SetValue(const void* buffer, long count) override;

    /// May pass the end. Fails with kErrStreamEnd (-110) for a position before the first byte.
    void OffsetPosition(long delta) override;
    void SetSize(unsigned long long size) override;
};

}  // namespace MLCore
