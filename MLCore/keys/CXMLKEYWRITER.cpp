#include <MLCore/keys/CXMLKEYWRITER.h>

#include <MLCore/keys/detail/XmlCharacters.h>
#include <MLCore/streams/COSTREAM.h>

#include <algorithm>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kPiece = 4096;

bool IsName(std::string_view name) noexcept { return name.size() <= CXMLKEYWRITER::kMaxText && IsXmlName(name); }

}  // namespace

CXMLKEYWRITER::CXMLKEYWRITER(COSTREAM& stream) : mStream(stream) {}

CXMLKEYWRITER::~CXMLKEYWRITER() = default;

void CXMLKEYWRITER::BeginElement(std::string_view name) {
    RequireXml(IsName(name) && mState != STATE::Text && mNames.size() < kMaxDepth && !(mNames.empty() && mHasRoot));
    if (!mHasRoot) {
        Append("<?xml version=\"1.0\" encoding=\"windows-1252\"?>");
        mHasRoot = true;
    }
    CloseTag();
    NewLine();
    Append("<");
    Append(name);
    mNames.emplace_back(name);
    mAttributes.clear();
    mTextSize = 0;
    mState = STATE::Tag;
    Flush(kPiece);
}

void CXMLKEYWRITER::EndElement() {
    RequireXml(!mNames.empty());
    const std::string name = std::move(mNames.back());
    mNames.pop_back();
    if (mState == STATE::Tag) {
        Append("/>");
    } else {
        if (mState == STATE::Children) {
            NewLine();
        }
        Append("</");
        Append(name);
        Append(">");
    }
    mState = STATE::Children;
    if (mNames.empty()) {
        Append("\n");
    }
    Flush(mNames.empty() ? 0 : kPiece);
}

void CXMLKEYWRITER::SetAttribute(std::string_view name, std::string_view value) {
    RequireXml(mState == STATE::Tag && mAttributes.size() < kMaxAttributes && IsName(name) &&
               value.size() <= kMaxText && IsXmlText(value) &&
               std::find(mAttributes.begin(), mAttributes.end(), name) == mAttributes.end());
    mAttributes.emplace_back(name);
    Append(" ");
    Append(name);
    Append("=\"");
    AppendXmlText(mPending, value);
    Append("\"");
    Flush(kPiece);
}

void CXMLKEYWRITER::SetText(std::string_view text) {
    RequireXml(!mNames.empty() && mState != STATE::Children && text.size() <= kMaxText - mTextSize && IsXmlText(text));
    CloseTag();
    AppendXmlText(mPending, text);
    mTextSize += text.size();
    mState = STATE::Text;
    Flush(kPiece);
}

void CXMLKEYWRITER::NewLine() {
    Append("\n");
    mPending.append(2 * mNames.size(), ' ');
}

void CXMLKEYWRITER::CloseTag() {
    if (mState == STATE::Tag) {
        Append(">");
    }
}

// A typed write of text would be encoded by some streams.
void CXMLKEYWRITER::Flush(std::size_t least) {
    if (mPending.size() >= least) {
        mStream.SetValue(static_cast<const void*>(mPending.data()), static_cast<long>(mPending.size()));
        mPending.clear();
    }
}

}  // namespace MLCore
