#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/platform/ForwardTypes.h>
#include <MLCore/streams/CRANDOMISTREAM.h>
#include <MLCore/streams/CRESOURCEINFO.h>
#include <MLCore/streams/CURSORSTREAM.h>

namespace MLCore {

/// Reads a resource: a file that was compiled into a program or a shared library, which stays loaded as long as the
/// stream is used.
///
///     CRESOURCESTREAM rates(nullptr, "RATES", 10);  // of the program itself, put there by mlcore_add_resources()
///     rates.Open();
class MLCORE_API CRESOURCESTREAM : public CURSORSTREAM<CRANDOMISTREAM> {
public:
    /// The resource of that name and type in `module` (null: the program), in whichever language the system prefers. Fails
    /// with -100 when it is missing, has no bytes or cannot be loaded.
    CRESOURCESTREAM(HINSTANCE module, const char* name, unsigned short type);
    explicit CRESOURCESTREAM(const CRESOURCEINFO& info);
    ~CRESOURCESTREAM() override;

    using CURSORSTREAM::GetValue;
    long GetValue(void* buffer, long count) override;

    /// Does nothing: a resource cannot change.
    void SetSize(unsigned long long size) override;

private:
    void* mResource;
    const void* mData;
};

}  // namespace MLCore
