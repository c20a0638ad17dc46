#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// The interface of classes that write their state as an element of a key stream and read it back.
class MLCORE_API CKEYSERIALIZABLE {
public:
    virtual ~CKEYSERIALIZABLE();
    /// Writes one element, with everything that belongs to it. Fails with kErrValueType (138) when the state cannot be
    /// written; some elements may then have no end.
    virtual void DoWriteState(CKEYWRITER& writer) const = 0;
    /// Reads the element that the reader stands on, as DoWriteState() wrote it. Must be called once, on an object that
    /// has just been created. Fails with kErrValueType for any other element; the object must then be released and not
    /// be used.
    virtual void DoInitState(CKEYREADER& reader) = 0;

protected:
    CKEYSERIALIZABLE() = default;
    CKEYSERIALIZABLE(const CKEYSERIALIZABLE&) = default;
    CKEYSERIALIZABLE& operator=(const CKEYSERIALIZABLE&) = default;
};

}  // namespace MLCore
