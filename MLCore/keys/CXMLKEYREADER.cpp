#include <MLCore/keys/CXMLKEYREADER.h>

#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/keys/detail/XmlCharacters.h>
#include <MLCore/streams/CISTREAM.h>
#include <MLCore/streams/CRANDOMSTREAM.h>
#include <MLCore/text/CodePage1252.h>
#include <MLCore/text/LegacyStrings.h>

#include <algorithm>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kLongestReference = 16;
constexpr int kNone = -1;

bool IsBlank(int character) noexcept {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

bool IsBlankText(std::string_view text) noexcept { return std::all_of(text.begin(), text.end(), IsBlank); }

bool IsSameWord(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return UpperAnsi(one) == UpperAnsi(other); });
}

void AppendText(std::string& text, char character) {
    RequireXml(text.size() < CXMLKEYWRITER::kMaxText);
    text += character;
}

}  // namespace

CXMLKEYREADER::CXMLKEYREADER(CISTREAM& stream) : mStream(stream), mRandom(dynamic_cast<CRANDOMSTREAM*>(&stream)) {}

CXMLKEYREADER::~CXMLKEYREADER() = default;

// ---- the elements

int CXMLKEYREADER::HasElement() {
    LookAhead();
    return mAhead == AHEAD::Element ? 1 : 0;
}

const std::string& CXMLKEYREADER::GetElementName() {
    RequireXml(HasElement() != 0);
    return mNext.name;
}

void CXMLKEYREADER::BeginElement(std::string_view name) {
    RequireXml(GetElementName() == name && mElements.size() < CXMLKEYWRITER::kMaxDepth);
    mElements.push_back(std::exchange(mNext, {}));
    mAhead = mElements.back().isEmpty ? AHEAD::End : AHEAD::Unknown;
}

void CXMLKEYREADER::EndElement() {
    RequireXml(!mElements.empty());
    LookAhead();
    const std::vector<ATTRIBUTE>& attributes = mElements.back().attributes;
    RequireXml(mAhead == AHEAD::End && IsBlankText(mText) &&
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
    RequireXml(attribute != nullptr);
    return attribute->value;
}

std::string CXMLKEYREADER::GetText() {
    RequireXml(!mElements.empty());
    LookAhead();
    return std::exchange(mText, {});
}

CXMLKEYREADER::ATTRIBUTE* CXMLKEYREADER::FindAttribute(std::string_view name) {
    RequireXml(!mElements.empty());
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
    if (mAhead == AHEAD::Unknown && !std::exchange(mIsBegun, true)) {
        ReadProlog();
    }
    int brackets = 0;  // as they stand, in a row: "]]>" is no text
    while (mAhead == AHEAD::Unknown) {
        if (Skip('<')) {
            ReadMarkup();
            brackets = 0;
        } else if (mElements.empty()) {
            RequireXml(IsBlank(Take()));
        } else if (PeekByte() == '&') {
            AppendText(mText, ReadReference());
            brackets = 0;
        } else {
            const char character = Take();
            RequireXml(character != '>' || brackets < 2);
            brackets = character == ']' ? brackets + 1 : 0;
            AppendText(mText, character);
        }
    }
}

// A byte-order mark, blanks and a declaration, all optional, and the first markup behind them.
void CXMLKEYREADER::ReadProlog() {
    mHasMark = PeekByte() == 0xEF;
    if (mHasMark) {
        for (const int byte : {0xEF, 0xBB, 0xBF}) {
            RequireXml(TakeByte() == byte);
        }
    }
    SkipBlanks();
    Expect("<");
    if (Skip('?')) {
        ReadInstruction(true);
    } else {
        ReadMarkup();
    }
}

// Behind a '<'.
void CXMLKEYREADER::ReadMarkup() {
    if (Skip('/')) {
        ReadEndTag();
    } else if (Skip('?')) {
        ReadInstruction(false);
    } else if (!Skip('!')) {
        ReadStartTag();
    } else if (Skip('-')) {
        SkipComment();
    } else {
        ReadCData();
    }
}

// Behind "<?".
void CXMLKEYREADER::ReadInstruction(bool isFirst) {
    const std::string target = ReadName();
    if (IsSameWord(target, "xml")) {
        RequireXml(isFirst && target == "xml");
        ReadDeclaration();
        return;
    }
    RequireXml(IsBlank(PeekByte()) || PeekByte() == '?');
    while (Take() != '?' || !Skip('>')) {
    }
}

void CXMLKEYREADER::ReadDeclaration() {
    const std::vector<ATTRIBUTE> attributes = ReadAttributes();
    Expect("?>");
    RequireXml(!attributes.empty() && attributes.front().name == "version");
    for (const ATTRIBUTE& each : attributes) {
        if (each.name == "encoding") {
            mIsUtf8 = IsSameWord(each.value, "utf-8");
            RequireXml(mIsUtf8 || (IsSameWord(each.value, "windows-1252") && !mHasMark));
        } else if (each.name == "version") {
            RequireXml(each.value == "1.0");
        } else {
            RequireXml(each.name == "standalone" && (each.value == "yes" || each.value == "no"));
        }
    }
}

void CXMLKEYREADER::ReadStartTag() {
    EndBlanks();
    if (!mElements.empty()) {
        mElements.back().hasChildren = true;
    }
    mNext.name = ReadName();
    mNext.attributes = ReadAttributes();
    mNext.isEmpty = Skip('/');
    Expect(">");
    mAhead = AHEAD::Element;
}

void CXMLKEYREADER::ReadEndTag() {
    RequireXml(!mElements.empty() && ReadName() == mElements.back().name);
    SkipBlanks();
    Expect(">");
    if (mElements.back().hasChildren) {
        EndBlanks();
    }
    mAhead = AHEAD::End;
}

// Beside elements stand blanks only.
void CXMLKEYREADER::EndBlanks() {
    RequireXml(IsBlankText(mText));
    mText.clear();
}

// Behind "<!-".
void CXMLKEYREADER::SkipComment() {
    Expect("-");
    while (Take() != '-' || !Skip('-')) {
    }
    Expect(">");
}

// Behind "<!". A document type fails here too.
void CXMLKEYREADER::ReadCData() {
    Expect("[CDATA[");
    RequireXml(!mElements.empty());
    const std::size_t start = mText.size();
    while (!std::string_view(mText).substr(start).ends_with("]]>")) {
        AppendText(mText, Take());
    }
    mText.resize(mText.size() - 3);
}

// Up to what can begin none.
std::vector<CXMLKEYREADER::ATTRIBUTE> CXMLKEYREADER::ReadAttributes() {
    std::vector<ATTRIBUTE> attributes;
    while (SkipBlanks() && IsXmlNameCharacter(static_cast<char>(PeekByte()))) {
        ATTRIBUTE attribute;
        attribute.name = ReadName();
        SkipBlanks();
        Expect("=");
        SkipBlanks();
        attribute.value = ReadQuoted();
        const bool isNew = std::none_of(attributes.begin(), attributes.end(),
                                        [&](const ATTRIBUTE& each) { return each.name == attribute.name; });
        RequireXml(isNew && attributes.size() < CXMLKEYWRITER::kMaxAttributes);
        attributes.push_back(std::move(attribute));
    }
    return attributes;
}

std::string CXMLKEYREADER::ReadName() {
    std::string name;
    while (IsXmlNameCharacter(static_cast<char>(PeekByte()))) {
        AppendText(name, Take());
    }
    RequireXml(IsXmlName(name));
    return name;
}

std::string CXMLKEYREADER::ReadQuoted() {
    const char quote = Take();
    RequireXml(quote == '"' || quote == '\'');
    std::string text;
    while (!Skip(quote)) {
        if (PeekByte() == '&') {
            AppendText(text, ReadReference());
        } else {
            const char character = Take();
            RequireXml(character != '<');
            AppendText(text, IsBlank(character) ? ' ' : character);
        }
    }
    return text;
}

char CXMLKEYREADER::ReadReference() {
    Expect("&");
    std::string reference;
    while (!Skip(';')) {
        reference += Take();
        RequireXml(reference.size() <= kLongestReference);
    }
    char character = '\0';
    RequireXml(ReadXmlReference(reference, character));
    return character;
}

// ---- the characters

int CXMLKEYREADER::PeekByte() {
    if (mAt == mSize) {
        // One by one from a stream that cannot take back what stands behind the document.
        const long wanted = mRandom != nullptr ? static_cast<long>(mBytes.size()) : 1L;
        mSize = static_cast<std::size_t>(
            std::clamp(mStream.GetValue(static_cast<void*>(mBytes.data()), wanted), 0L, wanted));
        mAt = 0;
        if (mSize == 0) {
            return kNone;
        }
    }
    return static_cast<unsigned char>(mBytes[mAt]);
}

int CXMLKEYREADER::TakeByte() {
    const int byte = PeekByte();
    RequireXml(byte != kNone);
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
    RequireXml(static_cast<unsigned char>(byte) >= 0x20 || IsBlank(character));
    return character;
}

char CXMLKEYREADER::TakeUtf8() {
    std::string sequence(1, static_cast<char>(TakeByte()));
    while (sequence.size() < 4 && PeekByte() != kNone && (PeekByte() & 0xC0) == 0x80) {
        sequence += static_cast<char>(TakeByte());
    }
    int lost = 0;
    const std::string character = AnsiFromUtf8(sequence, &lost);
    RequireXml(lost == 0);  // so it is one character: no other begins with such a byte
    return character.front();
}

void CXMLKEYREADER::Expect(std::string_view text) {
    for (const char character : text) {
        RequireXml(Take() == character);
    }
}

bool CXMLKEYREADER::Skip(char character) {
    if (PeekByte() != static_cast<unsigned char>(character)) {
        return false;
    }
    ++mAt;
    return true;
}

bool CXMLKEYREADER::SkipBlanks() {
    const bool hasBlanks = IsBlank(PeekByte());
    while (IsBlank(PeekByte())) {
        ++mAt;
    }
    return hasBlanks;
}

void CXMLKEYREADER::PutBack() {
    if (mRandom != nullptr && mAt != mSize) {
        mRandom->SetPosition(mRandom->GetPosition() - (mSize - mAt));
        mAt = mSize;
    }
}

}  // namespace MLCore
