#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CRANDOMSTREAM;

/// Remembers the position of a stream and puts it back at the end of the scope, also when an exception leaves it.
///
///     CSTREAMSAVER saver(stream);
///     if (ReadHeader(stream)) saver.Reset();  // go on behind it
class MLCORE_API CSTREAMSAVER {
public:
    /// The stream outlives the saver, or Reset() is called before it goes.
    explicit CSTREAMSAVER(CRANDOMSTREAM& stream);
    /// Restore(), without its failures.
    ~CSTREAMSAVER();
    CSTREAMSAVER(const CSTREAMSAVER&) = delete;
    CSTREAMSAVER& operator=(const CSTREAMSAVER&) = delete;

    /// Puts the position back; may be called again. Fails with -110 when the stream has become shorter than that, with 141
    /// when it is closed.
    void Restore();
    /// Forgets the stream: the position stays from now on.
    void Reset() noexcept;

private:
    CRANDOMSTREAM* mStream;
    unsigned long long mPosition;
};

}  // namespace MLCore
