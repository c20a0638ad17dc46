#pragma once

#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/platform/Export.h>
#include <MLCore/streams/CSERIALIZABLE.h>

namespace MLCore {

/// An object that a stream can write as a whole and create again. COSTREAM::SetObject() writes the identifier of its
/// class and its state. CISTREAM::GetObject() asks the object factory for a new object of that class and lets it read
/// the state.
///
///     class CORDER : public CSERIALIZABLEOBJECT {
///         MLCORE_CLASS(CORDER, CSERIALIZABLEOBJECT)
///     public:
///         void ReadState(CREADER& reader) override { reader >> mNumber >> mDate; }
///         void WriteState(CWRITER& writer) const override { writer << mNumber << mDate; }
///         ...
///     };
class MLCORE_API CSERIALIZABLEOBJECT : public COBJECT, public CSERIALIZABLE {
    MLCORE_CLASS(CSERIALIZABLEOBJECT, COBJECT)

public:
    CSERIALIZABLEOBJECT(const CSERIALIZABLEOBJECT&) = default;

protected:
    CSERIALIZABLEOBJECT() = default;
    CSERIALIZABLEOBJECT& operator=(const CSERIALIZABLEOBJECT&) = default;
    ~CSERIALIZABLEOBJECT() override;
};

}  // namespace MLCore
