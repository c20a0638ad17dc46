#pragma once

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/keys/CKEYSERIALIZABLE.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// An object that key streams can write.
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
