#include <MLCore/keys/CXMLKEYWRITER.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/XmlCharacters.h>
#include <MLCore/streams/COSTREAM.h>

#include <algorithm>

namespace MLCore {

namespace {

void Require(bool condition) {
    if (!condition) {
        FailOSErr(kErrValueType);
    }
}

}  // namespace

CXMLKEYWRITER::CXMLKEYWRITER(COSTREAM& stream) : mStream(stream) {}

CXMLKEYWRITER::~CXMLKEYWRITER() = default;

void CXMLKEYWRITER::BeginElement(std::string_view name) {
    Require(IsXmlName(name) && mState != STATE::Text && mNames.size() < kMaxDepth && !(mNames.empty() && mHasRoot));
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
    mState = STATE::Tag;
}

void CXMLKEYWRITER::EndElement() {
    Require(!mNames.empty());
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
    Flush();
}

void CXMLKEYWRITER::SetAttribute(std::string_view name, std::string_view value) {
    Require(mState == STATE::Tag && IsXmlName(name) && IsXmlText(value) &&
            std::find(mAttributes.begin(), mAttributes.end(), name) == mAttributes.end());
    mAttributes.emplace_back(name);
    Append(" ");
    Append(name);
    Append("=\"");
    AppendXmlText(mPending, value);
    Append("\"");
}

void CXMLKEYWRITER::SetText(std::string_view text) {
    Require(!mNames.empty() && mState != STATE::Children && IsXmlText(text));
    if (mState == STATE::Tag) {
        Append(">");
        mState = STATE::Text;
    }
    AppendXmlText(mPending, text);
    Flush();
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

void CXMLKEYWRITER::Flush() {
    mStream.SetValue(mPending);
    mPending.clear();
}

}  // namespace MLCore
