#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/platform/Export.h>
#include <MLCore/streams/CSERIALIZABLEOBJECT.h>
#include <MLCore/streams/detail/StreamablePointer.h>

#include <iosfwd>
#include <string>

namespace MLCore {

/// An object writes its state to a CWRITER. CSTREAMWRITER makes one from a stream. The operations are those of
/// COSTREAM.
///
///     void CORDER::WriteState(CWRITER& writer) const { writer << mNumber << mDate << mAmount; }
class MLCORE_API CWRITER {
public:
    CWRITER() = default;
    CWRITER(const CWRITER&) = default;
    CWRITER& operator=(const CWRITER&) = default;
    virtual ~CWRITER();

    virtual void SetValue(const void* buffer, long count) = 0;
    virtual void SetValue(void* handle) = 0;
    virtual void SetValue(const CDATETIME& value) = 0;
    virtual void SetValue(const CTIME& value) = 0;
    virtual void SetValue(const CDATE& value) = 0;
    virtual void SetValue(double value) = 0;
    virtual void SetValue(unsigned long value) = 0;
    virtual void SetValue(unsigned short value) = 0;
    virtual void SetValue(long value) = 0;
    virtual void SetValue(short value) = 0;
    virtual void SetValue(const std::string& value) = 0;
    virtual void SetValue(const char* value) = 0;
    virtual void SetValue(char value) = 0;
    virtual void SetValueBOOL(int value) = 0;
    virtual void SetObject(const CSERIALIZABLEOBJECT* object) = 0;
    /// This and the next do nothing unless they are overridden.
    virtual void WriteLine(const std::string& line);
    virtual void SetNextLine();

    template <class T>
    requires UnstreamablePointer<T>
    void SetValue(T* pointer) = delete;
    template <class T>
    void SetValue(const CSHAREOBJECTPTR<T>& holder) = delete;  // SetObject(holder)
};

MLCORE_API CWRITER& operator<<(CWRITER& writer, char value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, short value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, unsigned short value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, long value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, unsigned long value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, double value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, const char* value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, const std::string& value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, const CDATE& value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, const CTIME& value);
MLCORE_API CWRITER& operator<<(CWRITER& writer, const CDATETIME& value);
/// Lets the object write its state. To a field decorator, each value of the state is one field.
MLCORE_API CWRITER& operator<<(CWRITER& writer, const CSERIALIZABLE& object);

/// `writer << endl` calls SetNextLine().
MLCORE_API CWRITER& endl(CWRITER& writer);
MLCORE_API CWRITER& operator<<(CWRITER& writer, CWRITER& (*manipulator)(CWRITER&));

/// Copies the characters of `in`, blanks and line ends included, until its end. Copies nothing when `in` has failed.
MLCORE_API std::istream& operator>>(std::istream& in, CWRITER& writer);

}  // namespace MLCore
