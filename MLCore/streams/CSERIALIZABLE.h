#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CREADER;
class CWRITER;

/// What can write its state to a stream and read it back.
class MLCORE_API CSERIALIZABLE {
public:
    virtual ~CSERIALIZABLE();
    /// Reads what WriteState() wrote. A failure of the reader passes through; the object is then left in a state that can
    /// be destroyed, assigned or read again.
    virtual void ReadState(CREADER& reader) = 0;
    virtual void WriteState(CWRITER& writer) const = 0;

protected:
    CSERIALIZABLE() = default;
    CSERIALIZABLE(const CSERIALIZABLE&) = default;
    CSERIALIZABLE& operator=(const CSERIALIZABLE&) = default;
};

}  // namespace MLCore
