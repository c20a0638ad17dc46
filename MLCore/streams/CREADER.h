#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/platform/Export.h>
#include <MLCore/streams/CSERIALIZABLEOBJECT.h>

#include <iosfwd>
#include <string>

// <windows.h> makes a macro of this name; see COBJECTFACTORY.h.
#pragma push_macro("GetObject")
#undef GetObject

namespace MLCore {

/// An object reads its state from a CREADER. CSTREAMREADER makes one from a stream. The operations are those of
/// CISTREAM.
///
///     void CORDER::ReadState(CREADER& reader) { reader >> mNumber >> mDate >> mAmount; }
///
/// A memory block can be written to a CWRITER, but not read back here.
class MLCORE_API CREADER {
public:
    CREADER() = default;
    CREADER(const CREADER&) = default;
    CREADER& operator=(const CREADER&) = default;
    virtual ~CREADER();

    [[nodiscard]] virtual int IsEnd() const = 0;
    virtual long GetValue(void* buffer, long count) = 0;
    virtual void GetValue(CDATETIME& value) = 0;
    virtual void GetValue(CTIME& value) = 0;
    virtual void GetValue(CDATE& value) = 0;
    virtual void GetValue(double& value) = 0;
    virtual void GetValue(unsigned long& value) = 0;
    virtual void GetValue(unsigned short& value) = 0;
    virtual void GetValue(long& value) = 0;
    virtual void GetValue(short& value) = 0;
    virtual void GetValue(std::string& value, long length) = 0;
    virtual void GetValue(char* buffer, long length) = 0;
    virtual void GetValue(char& value) = 0;
    virtual void GetValueBOOL(int& value) = 0;
    [[nodiscard]] virtual CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObject() = 0;
    /// Returns IsEnd() unless it is overridden; then the next two do nothing.
    [[nodiscard]] virtual int IsEndOfLine() const;
    virtual void ReadLine(std::string& line);
    virtual void GetNextLine();

#ifdef _WIN32
    // The names of this call in a client that includes <windows.h> after this header. A client that overrides it must
    // undefine the macro first.
    [[nodiscard]] CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObjectA() { return GetObject(); }
    [[nodiscard]] CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObjectW() { return GetObject(); }
#endif
};

MLCORE_API CREADER& operator>>(CREADER& reader, char& value);
MLCORE_API CREADER& operator>>(CREADER& reader, short& value);
MLCORE_API CREADER& operator>>(CREADER& reader, unsigned short& value);
MLCORE_API CREADER& operator>>(CREADER& reader, long& value);
MLCORE_API CREADER& operator>>(CREADER& reader, unsigned long& value);
MLCORE_API CREADER& operator>>(CREADER& reader, double& value);
MLCORE_API CREADER& operator>>(CREADER& reader, CDATE& value);
MLCORE_API CREADER& operator>>(CREADER& reader, CTIME& value);
MLCORE_API CREADER& operator>>(CREADER& reader, CDATETIME& value);
/// Lets the object read its state. From a text or field decorator, each value of the state is one line or field.
MLCORE_API CREADER& operator>>(CREADER& reader, CSERIALIZABLE& object);
/// Calls GetValue(value, 32767). That reads one line or field of at most 32767 characters from a text or field
/// decorator, but exactly 32767 bytes from a binary stream. The memory at a `char*` must have room for 32768
/// characters.
MLCORE_API CREADER& operator>>(CREADER& reader, std::string& value);
MLCORE_API CREADER& operator>>(CREADER& reader, char* value);

/// `reader >> endl` calls GetNextLine().
MLCORE_API CREADER& endl(CREADER& reader);
MLCORE_API CREADER& operator>>(CREADER& reader, CREADER& (*manipulator)(CREADER&));

/// Copies the characters of the reader until its end. Fails as GetValue(char&) does: with kErrStreamEnd (-110) after a
/// CR that is the last byte below a text decorator.
MLCORE_API std::ostream& operator<<(std::ostream& out, CREADER& reader);

}  // namespace MLCore

#pragma pop_macro("GetObject")
