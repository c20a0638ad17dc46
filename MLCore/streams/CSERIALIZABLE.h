#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CREADER;
class CWRITER;

/// The interface of objects that can write their state to a stream and read it back.
class MLCORE_API CSERIALIZABLE {
public:
    virtual ~CSERIALIZABLE();
    /// Reads the state that WriteState() wrote, value by value in the same order. A failure of the reader is passed on.
    /// After it the object must still be safe to destroy, to assign and to read again.
    virtual void ReadState(CREADER& reader) = 0;
    /// Writes all values of the state.
    virtual void WriteState(CWRITER& writer) const = 0;

protected:
    CSERIALIZABLE() = default;
    CSERIALIZABLE(const CSERIALIZABLE&) = default;
    CSERIALIZABLE& operator=(const CSERIALIZABLE&) = default;
};

}  // namespace MLCore
