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
/// A concrete stream defines the raw read, IsEnd(), Skip() and Rewind(); the typed reads are built on the raw read and
/// take values in the form that COSTREAM writes (docs/formats/streams.md). A typed read that meets the end too early fails
/// with -110: the position stays where the raw read left it, the destination holds the bytes that came. Every failure of
/// the raw read passes through.
///
/// A class that overrides one GetValue() hides the others: it repeats `using CISTREAM::GetValue;`.
class MLCORE_API CISTREAM : public virtual CSTREAM {
public:
    ~CISTREAM() override;

    /// 1 once no more bytes can be read.
    [[nodiscard]] virtual int IsEnd() const = 0;
    /// Copies the rest of this stream to `out`, in reads of 1024 bytes, and returns the number of bytes, or the largest
    /// long when there are more.
    virtual long GetValue(COSTREAM& out);
    /// The raw read: up to `count` bytes into `buffer` (null: -100). Returns how many came, fewer only at the end; 0 when
    /// `count` is not positive.
    virtual long GetValue(void* buffer, long count) = 0;
    /// Reads a memory block. The caller owns the handle (GlobalFree; MLCore/platform/GlobalMemory.h); null for a block
    /// of no bytes. A size above 2^31-1, or beyond the end of a stream that knows its size, fails with -110 before memory
    /// is taken; a stream that does not know it is read in steps. Without memory: -100. `handle` is set on success only.
    virtual void GetValue(void*& handle);
    /// Has `object` read its state from this stream.
    virtual void GetValue(CSERIALIZABLE& object);
    virtual void GetValue(CDATETIME& value);
    virtual void GetValue(CTIME& value);
    virtual void GetValue(CDATE& value);
    virtual void GetValue(double& value);
    virtual void GetValue(unsigned long& value);  ///< 4 bytes
    virtual void GetValue(unsigned short& value);
    virtual void GetValue(long& value);  ///< 4 bytes, sign-extended
    virtual void GetValue(short& value);
    /// Reads exactly `length` bytes, zero bytes included. A negative length fails with -110, as a short read does;
    /// `value` is then unchanged.
    virtual void GetValue(std::string& value, long length);
    /// Reads exactly `length` bytes and terminates them: `buffer` has room for `length` + 1. A negative length fails
    /// with -110, null with -100.
    virtual void GetValue(char* buffer, long length);
    virtual void GetValue(char& value);
    virtual void GetValueBOOL(int& value);  ///< 4 bytes
    /// Reads an object that COSTREAM::SetObject() wrote; null for a null object. Fails with 123 when the factory has no
    /// class of that identifier, or one that is not a CSERIALIZABLEOBJECT; with -110 for a negative length of the name;
    /// with 138 when objects are nested in each other more than kMaxObjectDepth deep.
    [[nodiscard]] virtual CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> GetObject();
    /// Lines exist in text only (CISTREAMDECORATORTEXT): here, at the end of the stream, and the next two do nothing.
    [[nodiscard]] virtual int IsEndOfLine() const;
    virtual void ReadLine(std::string& line);
    virtual void GetNextLine();
    /// Moves the position by `count` bytes, backwards when negative, as far as the stream can.
    virtual void Skip(long count) = 0;
    /// Back to the first byte.
    virtual void Rewind() = 0;

    /// How deep objects may be nested that have further objects in their own state. What is nested deeper is neither read nor
    /// written: 138.
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
    // What a call becomes in a client that includes <windows.h> after this header. Who overrides it takes the macro away first.
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
    template <class Value>
    void ReadPlain(Value& value);
    template <class Stored, class Value>
    void ReadWidened(Value& value);

    friend class CURSORSTREAM;
    friend class CISTREAMDECORATORTEXT;
    STREAMCURSOR* mLent = nullptr;  // typed reads are done in its memory, as far as that goes
    short mObjectDepth = 0;
};

}  // namespace MLCore

#pragma pop_macro("GetObject")
