#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CRANDOMSTREAM;

/// Remembers the position of a stream and puts it back at the end of the scope, also when an exception leaves the
/// scope.
///
///     CSTREAMSAVER saver(stream);
///     if (ReadHeader(stream)) saver.Reset();  // continue after the header
class MLCORE_API CSTREAMSAVER {
public:
    /// Remembers the position of `stream`, which must outlive the saver, unless Reset() is called before.
    explicit CSTREAMSAVER(CRANDOMSTREAM& stream);
    /// Calls Restore(); its failures are lost.
    ~CSTREAMSAVER();
    CSTREAMSAVER(const CSTREAMSAVER&) = delete;
    CSTREAMSAVER& operator=(const CSTREAMSAVER&) = delete;

    /// Puts the position back. May be called again. Fails with kErrStreamEnd (-110) when the stream has become shorter
    /// than the position, and with kErrStreamClosed (141) when it is closed.
    void Restore();
    /// Forgets the stream: its position is no longer put back.
    void Reset() noexcept;

private:
    CRANDOMSTREAM* mStream;
    unsigned long long mPosition;
};

}  // namespace MLCore
