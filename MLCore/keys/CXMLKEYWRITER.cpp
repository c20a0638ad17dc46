#include <MLCore/keys/CXMLKEYWRITER.h>

#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/detail/XmlCharacters.h>
#include <MLCore/streams/COSTREAM.h>

#include <algorithm>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kPiece = 4096;

constexpr std::size_t kMaxShownName = 60;  // in the text of a failure

}  // namespace

CXMLKEYWRITER::CXMLKEYWRITER(COSTREAM& stream) : mStream(stream) {}

CXMLKEYWRITER::~CXMLKEYWRITER() = default;

void CXMLKEYWRITER::BeginElement(std::string_view name) {
    RequireName(name);
    RequireHere(mState != STATE::Text, "element ", Quoted(name), " after a text: an element has text or children");
    RequireHere(mNames.size() < kMaxDepth, "element ", Quoted(name), " is nested too deep: ", kMaxDepth,
                " is the limit");
    RequireHere(!mNames.empty() || !mHasRoot, "element ", Quoted(name), " after the end of the outermost element");
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
    RequireBegun();
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
    RequireBegun();
    RequireHere(mState == STATE::Tag, "attribute ", Quoted(name), " after a text or a child");
    RequireName(name);
    RequireText(value, 0);
    RequireHere(mAttributes.size() < kMaxAttributes, "attribute ", Quoted(name), " after ", kMaxAttributes, " others");
    RequireHere(std::find(mAttributes.begin(), mAttributes.end(), name) == mAttributes.end(), "attribute ",
                Quoted(name), " twice");
    mAttributes.emplace_back(name);
    Append(" ");
    Append(name);
    Append("=\"");
    AppendXmlText(mPending, value);
    Append("\"");
    Flush(kPiece);
}

void CXMLKEYWRITER::SetText(std::string_view text) {
    RequireBegun();
    RequireHere(mState != STATE::Children, "text ", Quoted(text), " after a child: an element has text or children");
    RequireText(text, mTextSize);
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

// The text of the failure begins with the element begun last.
template <class... Parts>
void CXMLKEYWRITER::RequireHere(bool condition, const Parts&... parts) const {
    if (!condition) [[unlikely]] {
        const std::string_view inside = mNames.empty() ? std::string_view() : mNames.back();
        FailWith(kErrValueType, inside.empty() ? "" : "in <", inside.substr(0, kMaxShownName),
                 inside.empty() ? "" : ">: ", parts...);
    }
}

void CXMLKEYWRITER::RequireBegun() const { RequireHere(!mNames.empty(), "no element has been begun"); }

void CXMLKEYWRITER::RequireName(std::string_view name) const {
    RequireHere(IsXmlName(name), Quoted(name),
                " is not a name: letters of ASCII, digits, '_', '-' and '.', the first a letter or '_'");
    RequireHere(name.size() <= kMaxText, "a name of ", name.size(), " characters, ", kMaxText, " is the limit");
}

// A text that is added to one of `size` characters.
void CXMLKEYWRITER::RequireText(std::string_view text, std::size_t size) const {
    RequireHere(text.size() <= kMaxText - size, "a text of ", text.size() + size, " characters, ", kMaxText,
                " is the limit");
    RequireHere(IsXmlText(text), "the text ", Quoted(text), " holds a control character");
}

}  // namespace MLCore
