#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CISTREAM.h>
#include <MLCore/streams/CRANDOMSTREAM.h>

namespace MLCore {

/// A stream with a position that is read from.
class MLCORE_API CRANDOMISTREAM : public CISTREAM, public CRANDOMSTREAM {
public:
    ~CRANDOMISTREAM() override;

    /// SetPosition(0).
    void Rewind() override;
    /// OffsetPosition(count).
    void Skip(long count) override;
    /// Cuts the stream and pulls the position back to the new end, or extends the stream with zeros, where the stream
    /// supports that.
    virtual void SetSize(unsigned long long size) = 0;

protected:
    explicit CRANDOMISTREAM(OpenMode mode);
};

}  // namespace MLCore
