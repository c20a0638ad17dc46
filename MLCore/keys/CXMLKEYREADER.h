#pragma once

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/platform/Export.h>

#include <array>
#include <cstddef>
#include <vector>

namespace MLCore {

class CISTREAM;
class CRANDOMSTREAM;

/// Reads a key stream from XML 1.0 in code page 1252 or, as other programs write it, in UTF-8 (docs/formats/keys.md). What the
/// code page lacks, a document type, an entity of one's own, mismatched tags, names that no CKEYWRITER writes, text beside
/// elements, what exceeds CXMLKEYWRITER's limits: whatever is not understood fails with 138. Comments and processing
/// instructions are skipped.
///
/// Before the outermost element stand, each optional and in this order: the byte-order mark of UTF-8, blanks, the declaration,
/// then blanks, comments and instructions. So documents may follow each other in a stream, a reader for each. The declaration
/// tells version 1.0 first, and the encoding "windows-1252" or "UTF-8", in any case; without one it is UTF-8.
///
/// Reading takes linear time, and memory for the elements entered. When the outermost element has been left, the stream
/// stands directly behind it; one that is no CRANDOMSTREAM is read byte by byte for that. After a failure the reader is good
/// for nothing. Then, and while it reads, the stream stands anywhere.
class MLCORE_API CXMLKEYREADER : public CKEYREADER {
public:
    /// The stream is open, is not owned, and outlives the reader. Nothing is read yet.
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
    /// What the reader has found ahead: not looked yet, a start tag (in mNext), or the end of the element entered last.
    enum class AHEAD { Unknown, Element, End };

    int PeekByte();
    int TakeByte();
    char Take();
    char TakeUtf8();
    void Expect(std::string_view text);
    bool Skip(char character);
    bool SkipBlanks();

    void LookAhead();
    void ReadProlog();
    void ReadMarkup();
    void ReadInstruction(bool isFirst);
    void ReadDeclaration();
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
    void PutBack();

    CISTREAM& mStream;
    CRANDOMSTREAM* mRandom;  // the stream, if its position can be set
    std::array<char, 4096> mBytes;
    std::size_t mAt = 0;
    std::size_t mSize = 0;

    std::vector<ELEMENT> mElements;  // entered and not left, the innermost last
    ELEMENT mNext;
    std::string mText;  // of the innermost element, since its last child
    AHEAD mAhead = AHEAD::Unknown;
    bool mIsBegun = false;
    bool mHasMark = false;
    bool mIsUtf8 = true;  // until the declaration tells something else
};

}  // namespace MLCore
