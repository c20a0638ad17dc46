#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>
#include <MLCore/streams/CRANDOMISTREAM.h>
#include <MLCore/streams/CRESOURCEINFO.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>

namespace MLCore {

/// Reads a resource: a file that was compiled into a program or a shared library. The module must stay loaded as long
/// as the stream is used.
///
///     CRESOURCESTREAM rates(nullptr, "RATES", 10);  // a file that mlcore_add_resources() compiled into the program
///     rates.Open();
class MLCORE_API CRESOURCESTREAM : public CRANDOMISTREAM {
public:
    /// Finds the resource of that name and type in `module` (null: the program), in the language that the system
    /// prefers. Fails with kErrNull (-100) when it is missing, has no bytes or cannot be loaded.
    CRESOURCESTREAM(HINSTANCE module, const char* name, unsigned short type);
    /// Reads a resource that was found. Fails with kErrNull when it is null, has no bytes or cannot be loaded.
    explicit CRESOURCESTREAM(const CRESOURCEINFO& info);
    ~CRESOURCESTREAM() override;

    using CISTREAM::GetValue;
    /// Opens the stream at its first byte.
    void Open() override;
    [[nodiscard]] int IsEnd() const override;
    long GetValue(COSTREAM& out) override;
    long GetValue(void* buffer, long count) override;

    [[nodiscard]] unsigned long long GetPosition() const override;
    void SetPosition(unsigned long long position) override;
    void SetPositionFromEnd(unsigned long long distance) override;
    void OffsetPosition(long delta) override;
    [[nodiscard]] unsigned long long GetSize() const override;

    /// Does nothing: a resource cannot change.
    void SetSize(unsigned long long size) override;

private:
    [[nodiscard]] static CRESOURCEINFO Find(HINSTANCE module, const char* name, unsigned short type);
    void RequireOpen(const char* operation) const;

    void* mResource;
    const void* mData;
    STREAMCURSOR mCursor;
};

}  // namespace MLCore
