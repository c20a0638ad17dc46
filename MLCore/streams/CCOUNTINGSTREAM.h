#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/detail/CURSORSTREAM.h>

namespace MLCore {

/// A stream that stores nothing and measures: write to it to learn how many bytes something takes.
///
/// What is read leaves the destination as it was (texts become zero bytes), and a null buffer is as good as any. A read
/// moves the position by all it asked for, deliberately, and so can pass the end; IsEnd() is 1 exactly at the end, so after
/// such a read it stays 0 until the two meet again. Do not copy it through a decorator, which would read past the end for
/// ever; its own GetValue(COSTREAM&) ends.
class MLCORE_API CCOUNTINGSTREAM : public CURSORSTREAM {
public:
    CCOUNTINGSTREAM();
    ~CCOUNTINGSTREAM() override;

    using COSTREAM::SetValue;
    using CURSORSTREAM::GetValue;
    [[nodiscard]] int IsEnd() const override;
    /// Writes as many zero bytes as are left, and returns their number.
    long GetValue(COSTREAM& out) override;
    /// Returns how many of the `count` bytes lie before the end.
    long GetValue(void* buffer, long count) override;
    void SetValue(const void* buffer, long count) override;

    /// May pass the end; fails with -110 before the first byte.
    void OffsetPosition(long delta) override;
    void SetSize(unsigned long long size) override;
};

}  // namespace MLCore
