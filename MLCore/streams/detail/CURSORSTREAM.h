#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CRANDOMIOSTREAM.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>

#include <typeinfo>

namespace MLCore {

/// The base of the streams that are read and written at a position which a STREAMCURSOR keeps.
class MLCORE_API CURSORSTREAM : public CRANDOMIOSTREAM {
public:
    ~CURSORSTREAM() override;

    using CISTREAM::GetValue;
    /// Opens the stream at its first byte; the size is kept.
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

    /// Called by Open(): until Close(), typed reads and typed writes use the cursor's memory directly. Only for an
    /// object of the class `own` itself: a derived class may have raw operations of its own.
    void Lend(const std::type_info& own) noexcept;
    [[nodiscard]] bool IsLent() const noexcept { return CISTREAM::mLent != nullptr; }
    /// IsOpen(), which no derived class can have overridden when the stream is lent.
    [[nodiscard]] bool IsReady() const { return IsLent() || IsOpen() != 0; }
    /// The first step of each operation but the queries: fails with kErrStreamClosed (141) when the stream is closed.
    void RequireReady(const char* operation) const {
        if (!IsReady()) [[unlikely]] {
            FailClosed(operation);
        }
    }

    mutable STREAMCURSOR mCursor;  // its area changes while nothing else does

private:
    /// The file's path for the texts of failures; null for a stream without a file.
    [[nodiscard]] virtual const char* GetFailurePath() const noexcept;
    [[noreturn]] void FailClosed(const char* operation) const;
};

}  // namespace MLCore
