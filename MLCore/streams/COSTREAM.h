#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/platform/Export.h>
#include <MLCore/streams/CSERIALIZABLEOBJECT.h>
#include <MLCore/streams/CSTREAM.h>
#include <MLCore/streams/detail/StreamablePointer.h>

#include <string>
#include <string_view>

namespace MLCore {

class STREAMCURSOR;

/// A stream of bytes to write to.
///
/// A concrete stream defines the raw write. The typed writes are built on it and write values as they lie in memory:
/// little-endian, `long` and `unsigned long` in 4 bytes (docs/formats/streams.md). A `long` that does not fit in 32
/// bits fails with kErrOverflow (126) before anything is written. Texts are written without length and terminator: the
/// caller must write the length first, or use a text or field decorator.
///
/// A class that overrides one SetValue() hides the others: it must repeat `using COSTREAM::SetValue;`. An `int` or
/// `bool` does not show which format is wanted, so writing one does not compile. Writing a pointer that is neither a
/// text nor a memory handle does not compile either.
class MLCORE_API COSTREAM : public virtual CSTREAM {
public:
    ~COSTREAM() override;

    /// The raw write: writes all `count` bytes at `buffer`, or fails; null fails with kErrNull (-100). Writes nothing
    /// when `count` is not positive.
    virtual void SetValue(const void* buffer, long count) = 0;
    /// Writes a memory block (MLCore/platform/GlobalMemory.h): its size, then its bytes. The caller keeps the handle. A
    /// null or invalid handle is written as a block of no bytes. A block above 2^31-1 bytes fails with kErrOverflow.
    /// The block must not be the one that holds the bytes of this stream.
    virtual void SetValue(void* handle);
    /// Lets `object` write its state to this stream.
    virtual void SetValue(const CSERIALIZABLE& object);
    virtual void SetValue(const CDATETIME& value);
    virtual void SetValue(const CTIME& value);
    virtual void SetValue(const CDATE& value);
    virtual void SetValue(double value);
    virtual void SetValue(unsigned long value);  ///< 4 bytes
    virtual void SetValue(unsigned short value);
    virtual void SetValue(long value);  ///< 4 bytes
    virtual void SetValue(short value);
    virtual void SetValue(const std::string& value);
    virtual void SetValue(const char* value);  ///< up to the terminator; null writes nothing
    virtual void SetValue(char value);
    virtual void SetValueBOOL(int value);  ///< 4 bytes
    /// Writes the identifier of the object's class with its length, then the object's state. Null is written as a null
    /// object, and so is an object whose class has no identifier or an empty one. Fails with kErrStreamName (-111) for
    /// an identifier of more than 32767 characters, and with kErrValueType (138) for objects nested deeper than
    /// CISTREAM::kMaxObjectDepth.
    virtual void SetObject(const CSERIALIZABLEOBJECT* object);
    /// Only texts have lines (COSTREAMDECORATORTEXT). Here both do nothing.
    virtual void WriteLine(const std::string& line);
    virtual void SetNextLine();

    template <class T>
    requires UnstreamablePointer<T>
    void SetValue(T* pointer) = delete;
    template <class T>
    void SetValue(const CSHAREOBJECTPTR<T>& holder) = delete;  // SetObject(holder)

    COSTREAM& operator<<(char value) { return Insert(value); }
    COSTREAM& operator<<(short value) { return Insert(value); }
    COSTREAM& operator<<(unsigned short value) { return Insert(value); }
    COSTREAM& operator<<(long value) { return Insert(value); }
    COSTREAM& operator<<(unsigned long value) { return Insert(value); }
    COSTREAM& operator<<(double value) { return Insert(value); }
    COSTREAM& operator<<(const char* value) { return Insert(value); }
    COSTREAM& operator<<(const std::string& value) { return Insert(value); }
    COSTREAM& operator<<(const CDATE& value) { return Insert(value); }
    COSTREAM& operator<<(const CTIME& value) { return Insert(value); }
    COSTREAM& operator<<(const CDATETIME& value) { return Insert(value); }
    COSTREAM& operator<<(const CSERIALIZABLE& object) { return Insert(object); }

protected:
    explicit COSTREAM(OpenMode mode);

private:
    template <class Value>
    COSTREAM& Insert(const Value& value) {
        SetValue(value);
        return *this;
    }

    void WriteBytes(const void* bytes, std::size_t count);
    void WriteText(std::string_view text);

    friend class CURSORSTREAM;
    friend class COSTREAMDECORATORTEXT;
    STREAMCURSOR* mLent = nullptr;  // typed writes use its memory where it has room
    short mObjectDepth = 0;
};

}  // namespace MLCore
