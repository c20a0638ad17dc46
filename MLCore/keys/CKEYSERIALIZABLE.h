#pragma once

#include <MLCore/platform/Export.h>

namespace MLCore {

class CKEYREADER;
class CKEYWRITER;

/// What can write its state as an element of a key stream and read it back.
class MLCORE_API CKEYSERIALIZABLE {
public:
    virtual ~CKEYSERIALIZABLE();
    /// Writes one element, with all that belongs to it. Fails with 138 for what cannot be written; elements may then be
    /// begun and not ended.
    virtual void DoWriteState(CKEYWRITER& writer) const = 0;
    /// Reads the element that the reader stands on, as DoWriteState() wrote it. Called once, on an object just created.
    /// Fails with 138 for anything else; the object is then good for nothing but to be released.
    virtual void DoInitState(CKEYREADER& reader) = 0;

protected:
    CKEYSERIALIZABLE() = default;
    CKEYSERIALIZABLE(const CKEYSERIALIZABLE&) = default;
    CKEYSERIALIZABLE& operator=(const CKEYSERIALIZABLE&) = default;
};

}  // namespace MLCore
