#pragma once

#include <MLCore/core/ExactClass.h>
#include <MLCore/platform/Export.h>
#include <MLCore/streams/COSTREAMDECORATOR.h>
#include <MLCore/streams/detail/BinaryForm.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <typeinfo>

// The binary formats of the base class are hidden on purpose.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#endif

namespace MLCore {

/// Writes values as text (docs/formats/streams.md), in lines that end with CR LF.
///
///     COSTREAMDECORATORTEXT text(file);
///     text << "Orders of " << CDATE::Today();
///     text.SetNextLine();
///
/// Nothing separates two values of a line. A value that will be read back must have a separate line, or a field
/// (COSTREAMDECORATORFIELD).
///
/// A text has no format for memory blocks and objects: writing one to this class does not compile. Through a COSTREAM&
/// it compiles, and goes to the component in its binary format. To write the state of an object as texts, use a
/// CSTREAMWRITER:
///
///     CSTREAMWRITER writer(text);
///     writer << order << endl;  // each value of the state as a text or field
class MLCORE_API COSTREAMDECORATORTEXT : public COSTREAMDECORATOR {
public:
    explicit COSTREAMDECORATORTEXT(COSTREAM& component);
    ~COSTREAMDECORATORTEXT() override;

    /// The raw write: every CR and every LF becomes CR LF, each by itself (so CR LF becomes two line ends), up to the
    /// first zero byte; the bytes from there on are written as they are.
    void SetValue(const void* buffer, long count) override;
    // All values except texts are written through the two SetValue() of texts.
    void SetValue(const CDATETIME& value) override;
    void SetValue(const CTIME& value) override;
    void SetValue(const CDATE& value) override;
    void SetValue(double value) override;
    void SetValue(unsigned long value) override;  ///< as a signed number: 4000000000 is "-294967296"
    void SetValue(unsigned short value) override;
    void SetValue(long value) override;
    void SetValue(short value) override;
    void SetValue(const std::string& value) override;
    void SetValue(const char* value) override;
    void SetValue(char value) override;
    void SetValueBOOL(int value) override;
    /// Writes the text, then calls SetNextLine().
    void WriteLine(const std::string& line) override;
    /// Ends the line here, then in the component.
    void SetNextLine() override;

    /// These do not compile: a text has no binary format.
    template <BinaryOnly Value>
    void SetValue(const Value&) {
        RefuseBinaryForm<COSTREAMDECORATORTEXT, Value>();
    }
    template <class Value>
    void SetObject(const Value&) {
        RefuseBinaryForm<COSTREAMDECORATORTEXT, Value>();
    }
    template <class T>
    requires UnstreamablePointer<T>
    void SetValue(T* pointer) = delete;
    void SetValue(std::nullptr_t) = delete;
    template <class T>
    void SetValue(const CSHAREOBJECTPTR<T>& holder) = delete;

    COSTREAMDECORATORTEXT& operator<<(char value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(short value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(unsigned short value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(long value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(unsigned long value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(double value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(const char* value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(const std::string& value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(const CDATE& value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(const CTIME& value) { return Insert(value); }
    COSTREAMDECORATORTEXT& operator<<(const CDATETIME& value) { return Insert(value); }
    template <BinaryOnly Value>
    void operator<<(const Value&) {
        RefuseBinaryForm<COSTREAMDECORATORTEXT, Value>();
    }

protected:
    /// For a derived class that does not override the raw write: `own` is its typeid. Objects of that class itself then
    /// write their line ends as fast as those of this one.
    COSTREAMDECORATORTEXT(COSTREAM& component, const std::type_info& own);

    /// Whether the object is of the class that its constructor named, and not of one derived from it.
    [[nodiscard]] bool IsOwn() const noexcept { return IsExactly(*this, *mOwn); }
    /// The component's memory where it may be written to directly; null otherwise.
    [[nodiscard]] STREAMCURSOR* GetLent() const noexcept { return GetComponent().mLent; }
    /// Writes bytes to the component unchanged.
    void WriteRun(const char* from, const char* to);
    void WriteLineEnd();
    /// All whole numbers are written by this: the digits, as a text.
    virtual void WriteInteger(std::int32_t value);

private:
    template <class Value>
    COSTREAMDECORATORTEXT& Insert(const Value& value) {
        SetValue(value);
        return *this;
    }

    const std::type_info* mOwn;
};

}  // namespace MLCore

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
