#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace MLCore {

/// Reads lines, and values that stand in lines of their own, as COSTREAMDECORATORTEXT writes them
/// (docs/formats/streams.md). Lines end with LF, and every CR is dropped.
///
///     CISTREAMDECORATORTEXT text(file);
///     while (text.IsEnd() == 0) {
///         text.ReadLine(line);
///     }
///
/// A read that comes to the end of its line takes the LF and sets the end-of-line flag. From then on values are empty,
/// until ReadLine() (which gives ""), GetNextLine(), ClearEndOfLine() or GetValue(char&), which reads on, clears the flag.
///
/// Typed reads take the rest of the line (32767 characters at most), blanks around the value ignored. An empty text gives 0
/// or null. What is not wholly a value of the type fails with 138, with the text taken and the destination unchanged; at
/// the end of the stream, with the flag clear, they fail with -110. Memory blocks and objects are the component's, in their
/// binary form, and so are Skip() and Rewind(), which leave the flag alone.
///
/// Each character is read by itself, unless nobody can tell: in the memory of the library's own streams lines are looked for
/// at once, as long as this is no derived class.
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

    using CISTREAMDECORATOR::GetValue;
    /// The raw read: `count` bytes without the CRs, fewer only at the end. Leaves the flag alone.
    long GetValue(void* buffer, long count) override;
    void GetValue(CDATETIME& value) override;
    void GetValue(CTIME& value) override;
    void GetValue(CDATE& value) override;
    void GetValue(double& value) override;
    void GetValue(unsigned long& value) override;  ///< -2^31 to 2^32-1, modulo 2^32
    void GetValue(unsigned short& value) override;
    void GetValue(long& value) override;
    void GetValue(short& value) override;
    /// The rest of the line, `length` characters at most, none at the end. Fails with -110 for a negative length.
    void GetValue(std::string& value, long length) override;
    /// The same, terminated: `buffer` has room for `length` + 1. Null fails with -100.
    void GetValue(char* buffer, long length) override;
    /// One character, the LF too. Fails with -110 when there is none, as at the end and after a CR that is the last byte.
    void GetValue(char& value) override;
    void GetValueBOOL(int& value) override;
    /// 1 when the flag is set, or the component is at the end of a line.
    [[nodiscard]] int IsEndOfLine() const override;
    /// The rest of the line, however long, and on to the next.
    void ReadLine(std::string& line) override;
    /// Skips the rest of the line; nothing but the flag when it is set.
    void GetNextLine() override;

protected:
    /// What all reads of lines and fields are made of. Appends to `text` (null: skips) the characters up to the line end,
    /// the end of the stream or, unless null, a separator that no odd number of double quotes stands before; stops when
    /// `limit` characters were taken. Takes the LF or the separator with it, and sets the flag at the LF.
    void ReadCharacters(std::string* text, std::size_t limit, const char* separator);
    /// The same at once, for what lies before the line end or the separator wholly in memory, and needs nothing dropped: `text` is
    /// valid until the next operation of the component. False, with nothing done, for all else.
    [[nodiscard]] bool TakeAhead(std::string_view& text, std::size_t limit, const char* separator, bool& hasQuotes);
    /// What typed reads begin with: the text of one value, or -110 at the end.
    [[nodiscard]] std::string ReadToken();

private:
    [[nodiscard]] std::string_view BytesAhead() const noexcept;
    template <class Value, class Parse>
    void ReadParsed(Value& value, Parse parse);
    template <class Stored, class Value>
    void ReadInteger(Value& value, long long lowest);
    template <class Value>
    void ReadFromString(Value& value);

    std::int32_t mIsEndOfLine = 0;
};

}  // namespace MLCore
