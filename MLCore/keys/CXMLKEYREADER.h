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
/// code page lacks, a document type, an entity of one's own, mismatched tags, names that no CKEYWRITER writes, more than 256
/// levels or attributes of one element, a name or text above 1 MiB: whatever is not understood fails with 138. Comments
/// and processing instructions are skipped.
///
/// When the outermost element has been left, a component that is a CRANDOMSTREAM stands behind it. After a failure the reader
/// is good for nothing, and the stream stands anywhere.
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
    };
    /// What the reader has found ahead: not looked yet, a start tag (in mNext), or the end of the element entered last.
    enum class AHEAD { Unknown, Element, End };

    int PeekByte();
    int TakeByte();
    char Take();
    int Peek() { return PeekByte(); }
    char TakeUtf8();
    void Expect(std::string_view text);
    bool Skip(char character);
    void SkipBlanks();

    void LookAhead();
    void ReadProlog();
    void ReadDeclaration();
    bool ReadMarkup();
    void ReadStartTag();
    void ReadEndTag();
    void SkipTo(std::string_view end);
    void ReadCData();
    std::string ReadName();
    std::string ReadQuoted();
    char ReadReference();
    void AppendText(std::string& text, char character);
    ATTRIBUTE* FindAttribute(std::string_view name);
    void PutBack();

    CISTREAM& mStream;
    CRANDOMSTREAM* mRandom;  // the stream, if its position can be set
    std::array<char, 4096> mBytes;
    std::size_t mAt = 0;
    std::size_t mSize = 0;

    std::vector<ELEMENT> mElements;  // entered and not left, the innermost last
    ELEMENT mNext;
    std::string mText;  // of the innermost element, behind its last child
    AHEAD mAhead = AHEAD::Unknown;
    bool mHasRoot = false;
    bool mIsUtf8 = true;  // until the declaration tells something else
};

}  // namespace MLCore
