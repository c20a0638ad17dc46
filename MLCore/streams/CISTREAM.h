#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/datetime/CDATETIME.h>
#include <MLCore/datetime/CTIME.h>
#include <MLCore/platform/Export.h>
#include <MLCore/streams/CSERIALIZABLEOBJECT.h>
#include <MLCore/streams/CSTREAM.h>

#include <string>

// <windows.h> makes a macro of this name; see COBJECTFACTORY.h.
#pragma push_macro("GetObject")
#undef GetObject

namespace MLCore {

class COSTREAM;
class STREAMCURSOR;

/// A stream of bytes to read from.
///
/// A concrete stream defines the raw read, IsEnd(), Skip() and Rewind(). The typed reads are built on the raw read and
/// read values in the format that COSTREAM writes (docs/formats/streams.md). A typed read that comes to the end too
/// early fails with kErrStreamEnd (-110): the position stays where the raw read left it, and the destination holds the
/// bytes that were read. The text of the failure says how many bytes were wanted and how many were read. If the stream
/// has a position, it also says where. Every failure of the raw read is passed on.
///
/// A class that overrides one GetValue() hides the others: it must repeat `using CISTREAM::GetValue;`.
class MLCORE_API CISTREAM : public virtual CSTREAM {
public:
    ~CISTREAM() override;

    /// 1 when no more bytes can be read.
    [[nodiscard]] virtual int IsEnd() const = 0;
    /// Copies the rest of this stream to `out`, in reads of 1024 bytes, and returns the number of bytes, or the largest
    /// long when there are more.
    virtual long GetValue(COSTREAM& out);
    /// The raw read: reads up to `count` bytes into `buffer`. Returns how many were read, fewer only at the end; 0 when
    /// `count` is not positive. A null buffer fails with kErrNull (-100).
    virtual long GetValue(void* buffer, long count) = 0;
    /// Reads a memory block. The caller then owns the handle (GlobalFree; MLCore/platform/GlobalMemory.h), which is
    /// null for a block of no bytes. A size above 2^31-1, or beyond the end of a stream that knows its size, fails with
    /// kErrStreamEnd before memory is taken. A stream that does not know its size is read in steps. Without memory it
    /// fails with kErrNull. `handle` is set on success only.
    virtual void GetValue(void*& handle);
    /// Lets `object` read its state from this stream.
    virtual void GetValue(CSERIALIZABLE& object);
    virtual void GetValue(CDATETIME& value);
    virtual void GetValue(CTIME& value);
    virtual void GetValue(CDATE& value);
    virtual void GetValue(double& value);
    virtual void GetValue(unsigned long& value);  ///< 4 bytes
    virtual void GetValue(unsigned short& value);
    virtual void GetValue(long& value);  ///< 4 bytes, sign-extended
    virtual void GetValue(short& value);
    /// Reads exactly `length` bytes, zero bytes included. A negative length fails with kErrStreamEnd, as a short read
    /// does; then `value` is unchanged.
    virtual void GetValue(std::string& value, long length);
    /// Reads exactly `length` bytes and terminates them: `buffer` must have room for `length` + 1. A negative length
    /// fails with kErrStreamEnd, null with kErrNull.
    virtual void GetValue(char* buffer, long length);
    virtual void GetValue(char& value);
    virtual void GetValueBOOL(int& value);  ///< 4 bytes
    /// Reads an object that COSTREAM::SetObject() wrote; returns null for a null object. Fails with kErrUnknownClass
    /// (123) when the factory has no class of that identifier, or one that is not a CSERIALIZABLEOBJECT; with
    /// kErrStreamEnd for a negative length of the identifier; with kErrValueType (138) when objects are nested in each
    /// other more than kMaxObjectDepth deep.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObject();
    /// Only texts have lines (CISTREAMDECORATORTEXT). Here this returns IsEnd(), and the next two do nothing.
    [[nodiscard]] virtual int IsEndOfLine() const;
    virtual void ReadLine(std::string& line);
    virtual void GetNextLine();
    /// Moves the position by `count` bytes, backwards when `count` is negative, where the stream supports that.
    virtual void Skip(long count) = 0;
    /// Goes back to the first byte.
    virtual void Rewind() = 0;

    /// The limit for objects that are nested in the states of objects. Reading or writing deeper ones fails with
    /// kErrValueType.
    static constexpr short kMaxObjectDepth = 256;

    CISTREAM& operator>>(char& value) { return Extract(value); }
    CISTREAM& operator>>(short& value) { return Extract(value); }
    CISTREAM& operator>>(unsigned short& value) { return Extract(value); }
    CISTREAM& operator>>(long& value) { return Extract(value); }
    CISTREAM& operator>>(unsigned long& value) { return Extract(value); }
    CISTREAM& operator>>(double& value) { return Extract(value); }
    CISTREAM& operator>>(CDATE& value) { return Extract(value); }
    CISTREAM& operator>>(CTIME& value) { return Extract(value); }
    CISTREAM& operator>>(CDATETIME& value) { return Extract(value); }
    CISTREAM& operator>>(CSERIALIZABLE& object) { return Extract(object); }
    /// Copies the rest of this stream.
    CISTREAM& operator>>(COSTREAM& out) { return Extract(out); }

#ifdef _WIN32
    // The names of this call in a client that includes <windows.h> after this header. A client that overrides it must
    // undefine the macro first.
    [[nodiscard]] CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObjectA() { return GetObject(); }
    [[nodiscard]] CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObjectW() { return GetObject(); }
#endif

protected:
    explicit CISTREAM(OpenMode mode);

private:
    template <class Value>
    CISTREAM& Extract(Value& value) {
        GetValue(value);
        return *this;
    }
    void ReadExactly(void* buffer, long count);
    [[noreturn]] void FailEnd(long wanted, long came) const;
    [[noreturn]] void FailLength(long length) const;
    template <class Value>
    void ReadPlain(Value& value);
    template <class Stored, class Value>
    void ReadWidened(Value& value);

    friend class CURSORSTREAM;
    friend class CISTREAMDECORATORTEXT;
    STREAMCURSOR* mLent = nullptr;  // typed reads use its memory where the bytes lie there
    short mObjectDepth = 0;
};

}  // namespace MLCore

#pragma pop_macro("GetObject")
