#pragma once

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/keys/CKEYSERIALIZABLE.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The base of objects that are written to key streams.
class MLCORE_API CKEYSERIALIZABLEOBJECT : public COBJECT, public CKEYSERIALIZABLE {
    MLCORE_CLASS(CKEYSERIALIZABLEOBJECT, COBJECT)

public:
    CKEYSERIALIZABLEOBJECT(const CKEYSERIALIZABLEOBJECT&) = default;

protected:
    CKEYSERIALIZABLEOBJECT() = default;
    CKEYSERIALIZABLEOBJECT& operator=(const CKEYSERIALIZABLEOBJECT&) = default;
    ~CKEYSERIALIZABLEOBJECT() override;
};

}  // namespace MLCore
