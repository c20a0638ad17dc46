#pragma once

#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/platform/Export.h>

#include <string>
#include <vector>

namespace MLCore {

class COSTREAM;

/// Writes a key stream as XML 1.0 in code page 1252, without a document type (docs/formats/keys.md), one element per line:
///
///     <?xml version="1.0" encoding="windows-1252"?>
///     <equal compType="caseInsensitive">
///       <key key="customer.name"/>
///       <value type="string" value="Dupont"/>
///     </equal>
///
/// The declaration is written with the first element. There is one outermost element; a second one fails with 138.
/// Failures of the stream pass through, and what was written is then incomplete.
class MLCORE_API CXMLKEYWRITER : public CKEYWRITER {
public:
    /// The stream is open, is not owned, and outlives the writer. It may be a binary stream; line ends are LF.
    explicit CXMLKEYWRITER(COSTREAM& stream);
    ~CXMLKEYWRITER() override;
    CXMLKEYWRITER(const CXMLKEYWRITER&) = delete;
    CXMLKEYWRITER& operator=(const CXMLKEYWRITER&) = delete;

    void BeginElement(std::string_view name) override;
    void EndElement() override;
    void SetAttribute(std::string_view name, std::string_view value) override;
    void SetText(std::string_view text) override;

    /// Elements are nested at most this deep; deeper ones fail with 138, here and in the reader.
    static constexpr std::size_t kMaxDepth = 256;

private:
    enum class STATE { Tag, Text, Children };

    void Append(std::string_view text) { mPending.append(text); }
    void NewLine();
    void CloseTag();
    void Flush();

    COSTREAM& mStream;
    std::string mPending;  // goes to the stream as one piece
    std::vector<std::string> mNames;
    std::vector<std::string> mAttributes;
    STATE mState = STATE::Children;
    bool mHasRoot = false;
};

}  // namespace MLCore
