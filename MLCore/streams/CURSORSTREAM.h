#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CRANDOMIOSTREAM.h>
#include <MLCore/streams/CRANDOMISTREAM.h>
#include <MLCore/streams/STREAMCURSOR.h>

namespace MLCore {

/// What streams of random access have in common when their size and position are all there is to know: Base is
/// CRANDOMISTREAM or CRANDOMIOSTREAM.
template <class Base>
class CURSORSTREAM : public Base {
public:
    using CISTREAM::GetValue;
    /// At the first byte, with the size kept.
    void Open() override {
        CSTREAM::Open();
        mCursor.Rewind();
    }
    [[nodiscard]] int IsEnd() const override { return this->IsOpen() == 0 || mCursor.IsAtEnd() ? 1 : 0; }
    long GetValue(COSTREAM& out) override {
        FailClosed(*this);
        return CISTREAM::GetValue(out);
    }

    [[nodiscard]] unsigned long long GetPosition() const override {
        return this->IsOpen() != 0 ? mCursor.GetPosition() : 0;
    }
    void SetPosition(unsigned long long position) override {
        FailClosed(*this);
        mCursor.SetPosition(position);
    }
    void SetPositionFromEnd(unsigned long long distance) override {
        FailClosed(*this);
        mCursor.SetPositionFromEnd(distance);
    }
    void OffsetPosition(long delta) override {
        FailClosed(*this);
        mCursor.Offset(delta);
    }
    [[nodiscard]] unsigned long long GetSize() const override { return this->IsOpen() != 0 ? mCursor.GetSize() : 0; }

protected:
    explicit CURSORSTREAM(CSTREAM::OpenMode mode, unsigned long long size = 0) : Base(mode), mCursor(size) {}

    STREAMCURSOR mCursor;
};

// Once, in the library: clients may call these through a base, and then the compiler may call them directly.
extern template class MLCORE_API CURSORSTREAM<CRANDOMISTREAM>;
extern template class MLCORE_API CURSORSTREAM<CRANDOMIOSTREAM>;

}  // namespace MLCore
