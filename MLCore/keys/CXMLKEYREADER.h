#pragma once

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/platform/Export.h>

#include <array>
#include <cstddef>
#include <vector>

namespace MLCore {

class CISTREAM;
class CRANDOMSTREAM;

/// Reads a key stream from XML 1.0 in code page 1252 or, as other programs write it, in UTF-8 (docs/formats/keys.md).
/// Comments and processing instructions are skipped. Everything else that a CXMLKEYWRITER does not write fails with
/// kErrValueType (138): a character that the code page lacks, a document type, an unknown entity, mismatched tags,
/// other names, text beside elements, and everything that exceeds the limits of CXMLKEYWRITER. The text of the failure
/// names the line, the column, the element and the expected content:
///
///     line 3, column 17, in <compound>: </and> found, </compound> wanted
///
/// These may precede the outermost element, in this order: the byte-order mark of UTF-8, blanks, the declaration, then
/// blanks, comments and instructions. So several documents may follow each other in a stream; each needs a new reader.
/// The declaration states version 1.0 first, then the encoding "windows-1252" or "UTF-8", in any case; without one it
/// is UTF-8.
///
/// Lines are counted from the first byte that the reader reads. A line ends with LF; a CR alone does not count.
///
/// Reading takes linear time, and memory for the elements entered. When the outermost element has been left, the stream
/// stands directly after it. For this, a stream that is not a CRANDOMSTREAM is read byte by byte. After a failure the
/// reader must not be used again. Then, and while it reads, the position of the stream is unspecified.
class MLCORE_API CXMLKEYREADER : public CKEYREADER {
public:
    /// The stream must be open and must outlive the reader, which does not own it. Nothing is read yet.
    explicit CXMLKEYREADER(CISTREAM& stream);
    ~CXMLKEYREADER() override;
    CXMLKEYREADER(const CXMLKEYREADER&) = delete;
    CXMLKEYREADER& operator=(const CXMLKEYREADER&) = delete;

    [[nodiscard]] int HasElement() override;
    [[nodiscard]] const std::string& GetElementName() override;
    void BeginElement(std::string_view name) override;
    void EndElement() override;
    [[nodiscard]] int HasAttribute(std::string_view name) override;
    [[nodiscard]] const std::string& GetAttribute(std::string_view name) override;
    [[nodiscard]] std::string GetText() override;
    [[nodiscard]] PLACE GetPlace() const noexcept override;

private:
    struct ATTRIBUTE {
        std::string name;
        std::string value;
        bool isAsked = false;
    };
    struct ELEMENT {
        std::string name;
        std::vector<ATTRIBUTE> attributes;
        bool isEmpty = false;
        bool hasChildren = false;
    };
    struct POSITION {
        unsigned long long line = 1;
        unsigned long long column = 1;
    };
    /// The next item: not read yet, a start tag (in mNext), or the end of the element entered last.
    enum class AHEAD { Unknown, Element, End };

    int PeekByte();
    bool ReadBytes();
    int TakeByte();
    char Take();
    char TakeUtf8();
    void Expect(const char* text);
    bool Skip(char character);
    bool SkipBlanks();
    void RequireRoom(std::size_t size) const;
    void Append(std::string& text, char character) const;
    template <class Predicate>
    void AppendRun(std::string& text, const Predicate& isOfRun);

    void LookAhead();
    void ReadProlog();
    void ReadMarkup(bool isFirst);
    void ReadInstruction(bool isFirst);
    void ReadDeclaration();
    void UseDeclared(const ATTRIBUTE& attribute);
    void ReadStartTag();
    void ReadEndTag();
    void EndBlanks();
    void SkipComment();
    void ReadCData();
    std::vector<ATTRIBUTE> ReadAttributes();
    std::string ReadName();
    std::string ReadQuoted();
    char ReadReference();
    ATTRIBUTE* FindAttribute(std::string_view name);
    void RequireEntered() const;
    void PutBack();

    [[nodiscard]] POSITION PositionOf(std::size_t at) const noexcept;
    [[nodiscard]] PLACE PlaceAt(const POSITION& position) const noexcept;
    template <class... Parts>
    [[noreturn]] void FailAtByte(const Parts&... parts) const;
    [[noreturn]] void FailWanted(const char* wanted);

    CISTREAM& mStream;
    CRANDOMSTREAM* mRandom;  // the stream, if its position can be set
    std::array<char, 4096> mBytes;
    std::size_t mAt = 0;
    std::size_t mSize = 0;

    // Lines are counted as late as possible: when other bytes replace these, or when a failure names a place.
    static constexpr std::size_t kGone = static_cast<std::size_t>(-1);
    POSITION mPosition;          // of the first of mBytes
    POSITION mTag;               // of the tag read last, if mTagAt is kGone
    std::size_t mTagAt = kGone;  // of the tag read last, in mBytes

    std::vector<ELEMENT> mElements;  // entered and not left, the innermost last
    ELEMENT mNext;
    std::string mText;  // of the innermost element, since its last child
    AHEAD mAhead = AHEAD::Unknown;
    bool mIsBegun = false;
    bool mHasMark = false;
    bool mIsUtf8 = true;  // unless the declaration says otherwise
};

}  // namespace MLCore
