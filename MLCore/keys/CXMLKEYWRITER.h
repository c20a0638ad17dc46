#pragma once

#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/platform/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace MLCore {

class COSTREAM;

/// Writes a key stream as XML 1.0 in code page 1252, without a document type (docs/formats/keys.md), one element per
/// line:
///
///     <?xml version="1.0" encoding="windows-1252"?>
///     <equal compType="caseInsensitive">
///       <key key="customer.name"/>
///       <value type="string" value="Dupont"/>
///     </equal>
///
/// The declaration is written with the first element. There is one outermost element. A second one fails with
/// kErrValueType (138), and so does everything that the reader would refuse. The text of the failure names the element
/// begun last and the part that cannot be written. A call that fails with kErrValueType changes nothing.
///
/// The stream gets raw writes of some thousand bytes, the last one when the outermost element ends. Its failures pass
/// through; the writer must not be used after one.
class MLCORE_API CXMLKEYWRITER : public CKEYWRITER {
public:
    /// The stream must be open and must outlive the writer, which does not own it. Line ends are LF.
    explicit CXMLKEYWRITER(COSTREAM& stream);
    ~CXMLKEYWRITER() override;
    CXMLKEYWRITER(const CXMLKEYWRITER&) = delete;
    CXMLKEYWRITER& operator=(const CXMLKEYWRITER&) = delete;

    void BeginElement(std::string_view name) override;
    void EndElement() override;
    void SetAttribute(std::string_view name, std::string_view value) override;
    void SetText(std::string_view text) override;

    // Limits, here and in the reader. A document that exceeds one fails with kErrValueType.
    static constexpr std::size_t kMaxDepth = 256;       ///< of elements in each other
    static constexpr std::size_t kMaxAttributes = 256;  ///< of one element
    static constexpr std::size_t kMaxText = 1U << 20;   ///< characters of a name, a value, the text of an element

private:
    enum class STATE { Tag, Text, Children };

    void Append(std::string_view text) { mPending.append(text); }
    template <class... Parts>
    void RequireHere(bool condition, const Parts&... parts) const;
    void RequireBegun() const;
    void RequireName(std::string_view name) const;
    void RequireText(std::string_view text, std::size_t size) const;
    void NewLine();
    void CloseTag();
    void Flush(std::size_t least);

    COSTREAM& mStream;
    std::string mPending;  // not yet in the stream
    std::vector<std::string> mNames;
    std::vector<std::string> mAttributes;  // names, of the element begun last
    std::size_t mTextSize = 0;             // of the element begun last
    STATE mState = STATE::Children;
    bool mHasRoot = false;
};

}  // namespace MLCore
