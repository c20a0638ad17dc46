#include <MLCore/keys/CXMLKEYREADER.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/keys/XmlCharacters.h>
#include <MLCore/streams/CISTREAM.h>
#include <MLCore/streams/CRANDOMSTREAM.h>
#include <MLCore/text/CodePage1252.h>
#include <MLCore/text/LegacyStrings.h>

#include <algorithm>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kLongestText = 1U << 20;
constexpr std::size_t kMostAttributes = 256;
constexpr std::size_t kLongestReference = 8;
constexpr int kNone = -1;

[[noreturn]] void Refuse() {
    FailOSErr(kErrValueType);
    throw FrameworkException(kErrValueType, kErrValueType);  // never reached: the compiler does not know the check
}

void Require(bool condition) {
    if (!condition) {
        Refuse();
    }
}

bool IsBlank(int character) noexcept {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

bool IsBlankText(std::string_view text) noexcept { return std::all_of(text.begin(), text.end(), IsBlank); }

}  // namespace

CXMLKEYREADER::CXMLKEYREADER(CISTREAM& stream) : mStream(stream), mRandom(dynamic_cast<CRANDOMSTREAM*>(&stream)) {}

CXMLKEYREADER::~CXMLKEYREADER() = default;

// ---- the elements

int CXMLKEYREADER::HasElement() {
    LookAhead();
    return mAhead == AHEAD::Element ? 1 : 0;
}

const std::string& CXMLKEYREADER::GetElementName() {
    Require(HasElement() != 0);
    return mNext.name;
}

void CXMLKEYREADER::BeginElement(std::string_view name) {
    Require(GetElementName() == name && IsBlankText(mText) && mElements.size() < CXMLKEYWRITER::kMaxDepth);
    mElements.push_back(std::exchange(mNext, {}));
    mText.clear();
    mHasRoot = true;
    mAhead = mElements.back().isEmpty ? AHEAD::End : AHEAD::Unknown;
}

void CXMLKEYREADER::EndElement() {
    Require(!mElements.empty());
    LookAhead();
    const std::vector<ATTRIBUTE>& attributes = mElements.back().attributes;
    Require(mAhead == AHEAD::End && IsBlankText(mText) &&
            std::all_of(attributes.begin(), attributes.end(), [](const ATTRIBUTE& each) { return each.isAsked; }));
    mElements.pop_back();
    mText.clear();
    mAhead = AHEAD::Unknown;
    if (mElements.empty()) {
        mAhead = AHEAD::End;
        PutBack();
    }
}

int CXMLKEYREADER::HasAttribute(std::string_view name) { return FindAttribute(name) != nullptr ? 1 : 0; }

const std::string& CXMLKEYREADER::GetAttribute(std::string_view name) {
    const ATTRIBUTE* const attribute = FindAttribute(name);
    Require(attribute != nullptr);
    return attribute->value;
}

std::string CXMLKEYREADER::GetText() {
    Require(!mElements.empty());
    LookAhead();
    return std::exchange(mText, {});
}

CXMLKEYREADER::ATTRIBUTE* CXMLKEYREADER::FindAttribute(std::string_view name) {
    Require(!mElements.empty());
    for (ATTRIBUTE& attribute : mElements.back().attributes) {
        if (attribute.name == name) {
            attribute.isAsked = true;
            return &attribute;
        }
    }
    return nullptr;
}

// ---- the markup

void CXMLKEYREADER::LookAhead() {
    if (mAhead != AHEAD::Unknown) {
        return;
    }
    if (!mHasRoot) {
        ReadProlog();
    }
    while (mAhead == AHEAD::Unknown) {
        if (Skip('<')) {
            ReadMarkup();
        } else {
            const bool isReference = Peek() == '&';
            const char character = isReference ? ReadReference() : Take();
            Require(!mElements.empty() || (!isReference && IsBlank(character)));
            AppendText(mText, character);
        }
    }
}

// A byte-order mark and a declaration, both optional.
void CXMLKEYREADER::ReadProlog() {
    if (PeekByte() == 0xEF) {
        for (const int byte : {0xEF, 0xBB, 0xBF}) {
            Require(TakeByte() == byte);
        }
    }
    SkipBlanks();
    Expect("<");
    if (Skip('?')) {
        const std::string target = ReadName();
        if (target == "xml") {
            ReadDeclaration();
        } else {
            SkipTo("?>");
        }
    } else {
        ReadMarkup();
    }
}

void CXMLKEYREADER::ReadDeclaration() {
    for (SkipBlanks(); !Skip('?'); SkipBlanks()) {
        const std::string name = ReadName();
        SkipBlanks();
        Expect("=");
        SkipBlanks();
        const std::string value = ReadQuoted();
        if (name == "encoding") {
            mIsUtf8 = lstrcmpinolocal(value.c_str(), "utf-8") == 0;
            Require(mIsUtf8 || lstrcmpinolocal(value.c_str(), "windows-1252") == 0);
        } else {
            Require((name == "version" && value == "1.0") || (name == "standalone" && value == "yes"));
        }
    }
    Expect(">");
}

// Behind a '<'.
bool CXMLKEYREADER::ReadMarkup() {
    if (Skip('/')) {
        ReadEndTag();
    } else if (Skip('?')) {
        SkipTo("?>");
    } else if (!Skip('!')) {
        ReadStartTag();
    } else if (Skip('-')) {
        Expect("-");
        SkipTo("-->");
    } else {
        ReadCData();
    }
    return mAhead != AHEAD::Unknown;
}

void CXMLKEYREADER::ReadStartTag() {
    mNext = {ReadName(), {}, false};
    std::size_t total = 0;
    for (bool isSpaced = IsBlank(Peek());; isSpaced = IsBlank(Peek())) {
        SkipBlanks();
        if (Skip('>')) {
            break;
        }
        if (Skip('/')) {
            Expect(">");
            mNext.isEmpty = true;
            break;
        }
        Require(isSpaced && mNext.attributes.size() < kMostAttributes);
        ATTRIBUTE attribute;
        attribute.name = ReadName();
        SkipBlanks();
        Expect("=");
        SkipBlanks();
        attribute.value = ReadQuoted();
        total += attribute.name.size() + attribute.value.size();
        const bool isNew = std::none_of(mNext.attributes.begin(), mNext.attributes.end(),
                                        [&](const ATTRIBUTE& each) { return each.name == attribute.name; });
        Require(isNew && total <= 2 * kLongestText);
        mNext.attributes.push_back(std::move(attribute));
    }
    mAhead = AHEAD::Element;
}

void CXMLKEYREADER::ReadEndTag() {
    Require(!mElements.empty() && ReadName() == mElements.back().name);
    SkipBlanks();
    Expect(">");
    mAhead = AHEAD::End;
}

void CXMLKEYREADER::SkipTo(std::string_view end) {
    std::string last;
    while (last != end) {
        last += static_cast<char>(Take());
        if (last.size() > end.size()) {
            last.erase(0, 1);
        }
    }
}

void CXMLKEYREADER::ReadCData() {
    Expect("[CDATA[");
    Require(!mElements.empty());
    std::string text;
    while (!text.ends_with("]]>")) {
        AppendText(text, Take());
    }
    text.resize(text.size() - 3);
    Require(mText.size() + text.size() <= kLongestText);
    mText += text;
}

std::string CXMLKEYREADER::ReadName() {
    std::string name;
    while (Peek() != kNone && IsXmlNameCharacter(static_cast<char>(Peek()))) {
        AppendText(name, Take());
    }
    Require(IsXmlName(name));
    return name;
}

std::string CXMLKEYREADER::ReadQuoted() {
    const char quote = Take();
    Require(quote == '"' || quote == '\'');
    std::string text;
    while (Peek() != quote) {
        if (Peek() == '&') {
            AppendText(text, ReadReference());
        } else {
            const char character = Take();
            Require(character != '<');
            AppendText(text, IsBlank(character) ? ' ' : character);
        }
    }
    Take();
    return text;
}

char CXMLKEYREADER::ReadReference() {
    Expect("&");
    std::string reference;
    while (!Skip(';')) {
        reference += Take();
        Require(reference.size() <= kLongestReference);
    }
    char character = '\0';
    Require(ReadXmlReference(reference, character));
    return character;
}

void CXMLKEYREADER::AppendText(std::string& text, char character) {
    Require(text.size() < kLongestText);
    text += character;
}

// ---- the characters

int CXMLKEYREADER::PeekByte() {
    if (mAt == mSize) {
        // One by one from a stream that cannot take back what stands behind the document.
        const long wanted = mRandom != nullptr ? static_cast<long>(mBytes.size()) : 1L;
        mSize = static_cast<std::size_t>(std::max(0L, mStream.GetValue(static_cast<void*>(mBytes.data()), wanted)));
        mAt = 0;
        if (mSize == 0) {
            return kNone;
        }
    }
    return static_cast<unsigned char>(mBytes[mAt]);
}

int CXMLKEYREADER::TakeByte() {
    const int byte = PeekByte();
    Require(byte != kNone);
    ++mAt;
    return byte;
}

// One character; CR LF and CR are LF.
char CXMLKEYREADER::Take() {
    const int byte = TakeByte();
    if (byte >= 0x80 && mIsUtf8) {
        --mAt;
        return TakeUtf8();
    }
    const char character = static_cast<char>(byte);
    if (character == '\r') {
        if (PeekByte() == '\n') {
            ++mAt;
        }
        return '\n';
    }
    Require(static_cast<unsigned char>(byte) >= 0x20 || IsBlank(character));
    return character;
}

char CXMLKEYREADER::TakeUtf8() {
    std::string sequence(1, static_cast<char>(TakeByte()));
    while (sequence.size() < 4 && PeekByte() != kNone && (PeekByte() & 0xC0) == 0x80) {
        sequence += static_cast<char>(TakeByte());
    }
    int lost = 0;
    const std::string character = AnsiFromUtf8(sequence, &lost);
    Require(lost == 0 && character.size() == 1);
    return character.front();
}

void CXMLKEYREADER::Expect(std::string_view text) {
    for (const char character : text) {
        Require(Take() == character);
    }
}

bool CXMLKEYREADER::Skip(char character) {
    if (PeekByte() != static_cast<unsigned char>(character)) {
        return false;
    }
    ++mAt;
    return true;
}

void CXMLKEYREADER::SkipBlanks() {
    while (IsBlank(PeekByte())) {
        ++mAt;
    }
}

void CXMLKEYREADER::PutBack() {
    if (mAt != mSize) {
        mRandom->SetPosition(mRandom->GetPosition() - (mSize - mAt));
        mAt = mSize;
    }
}

}  // namespace MLCore
