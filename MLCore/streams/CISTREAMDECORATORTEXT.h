#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>
#include <MLCore/streams/FIELDSCANNER.h>
#include <MLCore/streams/detail/BinaryForm.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <typeinfo>

// <windows.h> makes a macro of this name; see COBJECTFACTORY.h.
#pragma push_macro("GetObject")
#undef GetObject

// The binary formats of the base class are hidden on purpose.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#endif

namespace MLCore {

/// Reads lines, and values that each have a separate line, as COSTREAMDECORATORTEXT writes them
/// (docs/formats/streams.md). Lines end with LF, and every CR is dropped.
///
///     CISTREAMDECORATORTEXT text(file);
///     while (text.IsEnd() == 0) {
///         text.ReadLine(line);
///     }
///
/// A read that comes to the end of its line takes the LF and sets the end-of-line flag. From then on values are empty
/// until the flag is cleared: by ReadLine() (which gives ""), GetNextLine(), ClearEndOfLine(), or GetValue(char&),
/// which reads on.
///
/// A typed read takes the rest of the line, 32767 characters at most, and ignores blanks around the value. An empty
/// text gives 0 or null. A text that is not wholly a value of the type fails with kErrValueType (138): the text is
/// taken, and the destination keeps its value. At the end of the stream, with the flag clear, typed reads fail with
/// kErrStreamEnd (-110). The text of a failure names the line and the column of the value when the stream so far lies
/// in memory, else its byte.
///
/// Skip() and Rewind() are the component's and leave the flag unchanged. A text has no format for memory blocks and
/// objects: reading one from this class does not compile. Through a CISTREAM& it compiles, and reads the component's
/// binary format. To read the state of an object from texts, use a CSTREAMREADER:
///
///     CSTREAMREADER reader(text);
///     reader >> order;  // each value of the state from a line or field
///
/// In the memory of the library's own streams, lines are found in one pass. From other components, and for classes
/// derived from this one, each character is read by itself.
class MLCORE_API CISTREAMDECORATORTEXT : public CISTREAMDECORATOR {
public:
    explicit CISTREAMDECORATORTEXT(CISTREAM& component);
    ~CISTREAMDECORATORTEXT() override;

    /// 1 for CR and LF.
    [[nodiscard]] static constexpr int IsEOLChar(char character) noexcept {
        return character == '\r' || character == '\n' ? 1 : 0;
    }
    /// 1 for LF.
    [[nodiscard]] static constexpr int IsEOL(char character) noexcept { return character == '\n' ? 1 : 0; }

    /// Clears the end-of-line flag.
    void ClearEndOfLine() noexcept { mIsEndOfLine = 0; }

    /// Copies the rest of this stream, without the CRs.
    long GetValue(COSTREAM& out) override;
    /// The raw read: `count` bytes without the CRs, fewer only at the end. Leaves the flag unchanged.
    long GetValue(void* buffer, long count) override;
    void GetValue(CDATETIME& value) override;
    void GetValue(CTIME& value) override;
    void GetValue(CDATE& value) override;
    void GetValue(double& value) override;
    void GetValue(unsigned long& value) override;  ///< from -2^31 to 2^32-1, modulo 2^32
    void GetValue(unsigned short& value) override;
    void GetValue(long& value) override;
    void GetValue(short& value) override;
    /// Reads the rest of the line, `length` characters at most, none at the end of the stream. Fails with kErrStreamEnd
    /// for a negative length.
    void GetValue(std::string& value, long length) override;
    /// Reads the same and terminates it: `buffer` must have room for `length` + 1 characters. Null fails with kErrNull
    /// (-100).
    void GetValue(char* buffer, long length) override;
    /// Reads one character, also the LF. Fails with kErrStreamEnd when there is none: at the end, and after a CR that
    /// is the last byte.
    void GetValue(char& value) override;
    void GetValueBOOL(int& value) override;
    /// Returns 1 when the flag is set, or the component is at the end of a line.
    [[nodiscard]] int IsEndOfLine() const override;
    /// Reads the rest of the line, however long, and moves to the next one.
    void ReadLine(std::string& line) override;
    /// Skips the rest of the line. When the flag is set, it only clears the flag.
    void GetNextLine() override;

    /// These do not compile: a text has no binary format.
    template <BinaryOnly Value>
    void GetValue(Value&) {
        RefuseBinaryForm<CISTREAMDECORATORTEXT, Value>();
    }
    template <class Value = CSERIALIZABLE>
    void GetObject() {
        RefuseBinaryForm<CISTREAMDECORATORTEXT, Value>();
    }

    CISTREAMDECORATORTEXT& operator>>(char& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(short& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(unsigned short& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(long& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(unsigned long& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(double& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(CDATE& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(CTIME& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(CDATETIME& value) { return Extract(value); }
    CISTREAMDECORATORTEXT& operator>>(COSTREAM& out) { return Extract(out); }
    template <BinaryOnly Value>
    void operator>>(Value&) {
        RefuseBinaryForm<CISTREAMDECORATORTEXT, Value>();
    }

#ifdef _WIN32
    // The names of this call in a client that includes <windows.h> after this header.
    template <class Value = CSERIALIZABLE>
    void GetObjectA() {
        RefuseBinaryForm<CISTREAMDECORATORTEXT, Value>();
    }
    template <class Value = CSERIALIZABLE>
    void GetObjectW() {
        RefuseBinaryForm<CISTREAMDECORATORTEXT, Value>();
    }
#endif

protected:
    /// For a derived class that does not override IsEnd(), IsEndOfLine() and the raw read: `own` is its typeid. Objects
    /// of that class itself are then read as fast as those of this one.
    CISTREAMDECORATORTEXT(CISTREAM& component, const std::type_info& own);

    /// All reads of lines and fields use this. Reads up to the line end, the end of the stream, a separator with an
    /// even number of double quotes before it ('\n': no separator), or `limit` characters. Takes the LF or the
    /// separator with it, and sets the flag at the LF. The text lies in the component or in this object: it is valid
    /// until the next operation. `hasQuotes` is set to false only when the text has no double quote.
    std::string_view ReadCharacters(char separator, std::size_t limit, bool& hasQuotes);
    /// The first step of typed reads: returns the text of one value. At the end of the stream it fails with
    /// kErrStreamEnd; the text of the failure names the `wanted` value ("a date").
    [[nodiscard]] std::string ReadToken(const char* wanted);
    /// Fails with kErrStreamEnd for a negative length.
    static void RequireLength(long length) {
        if (length < 0) [[unlikely]] {
            FailLength(length);
        }
    }

private:
    struct WANTED;

    template <class Value>
    CISTREAMDECORATORTEXT& Extract(Value& value) {
        GetValue(value);
        return *this;
    }
    [[nodiscard]] STREAMCURSOR* GetLent() const noexcept;
    FIELDSCANNER::PIECE TakeAhead(STREAMCURSOR& lent, FIELDSCANNER& scanner, std::size_t limit) noexcept;
    std::string_view ReadRest(FIELDSCANNER scanner, std::size_t limit, std::string_view text);
    void RequireOpen();
    template <class Value, class Parse>
    void ReadParsed(Value& value, const WANTED& wanted, Parse parse);
    template <class Stored, long long Lowest, class Value>
    void ReadInteger(Value& value);
    template <class Value>
    void ReadFromString(Value& value, const WANTED& wanted);
    [[noreturn]] void FailEnd(const char* wanted);
    [[noreturn]] static void FailLength(long length);
    [[noreturn]] void FailText(std::string_view text, const WANTED& wanted, unsigned long long start) const;

    const std::type_info* mOwn;
    std::string mBuffer;  // for a text that does not lie in the component's memory in one piece
    std::int32_t mIsEndOfLine = 0;
};

}  // namespace MLCore

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

#pragma pop_macro("GetObject")
