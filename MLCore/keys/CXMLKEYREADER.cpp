#include <MLCore/keys/CXMLKEYREADER.h>

#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/keys/detail/XmlCharacters.h>
#include <MLCore/streams/CISTREAM.h>
#include <MLCore/streams/CRANDOMSTREAM.h>
#include <MLCore/text/CodePage1252.h>
#include <MLCore/text/LegacyStrings.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace MLCore {

namespace {

constexpr std::size_t kLongestReference = 16;
constexpr std::size_t kMaxShownName = 60;  // in the text of a failure
constexpr int kNone = -1;

bool IsBlank(int character) noexcept {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

bool IsBlankText(std::string_view text) noexcept { return std::all_of(text.begin(), text.end(), IsBlank); }

/// By byte: stands for itself in values and texts, in both encodings.
constexpr std::array<bool, 256> kIsPlain = [] {
    std::array<bool, 256> isPlain{};
    std::fill(isPlain.begin() + ' ', isPlain.begin() + 0x7F, true);
    for (const char character : std::string_view("&<>]'\"")) {
        isPlain[static_cast<unsigned char>(character)] = false;
    }
    return isPlain;
}();

bool IsPlain(char character) noexcept { return kIsPlain[static_cast<unsigned char>(character)]; }

bool IsSameWord(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return UpperAnsi(one) == UpperAnsi(other); });
}

bool IsUtf8Continuation(char byte) noexcept { return (byte & 0xC0) == 0x80; }

std::string_view WithoutBlanks(std::string_view text) noexcept {
    const auto* const first = std::find_if_not(text.begin(), text.end(), IsBlank);
    text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
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
    if (HasElement() == 0) {
        FailHere("no further element, one is wanted");
    }
    return mNext.name;
}

void CXMLKEYREADER::BeginElement(std::string_view name) {
    if (HasElement() == 0) {
        FailHere("no further element, ", Quoted(name), " is wanted");
    }
    if (mNext.name != name) {
        FailHere("element ", Quoted(mNext.name), " found, ", Quoted(name), " wanted");
    }
    if (mElements.size() == CXMLKEYWRITER::kMaxDepth) {
        FailHere("element ", Quoted(name), " is nested too deep: ", CXMLKEYWRITER::kMaxDepth, " is the limit");
    }
    mElements.push_back(std::exchange(mNext, {}));
    mAhead = mElements.back().isEmpty ? AHEAD::End : AHEAD::Unknown;
}

void CXMLKEYREADER::EndElement() {
    RequireEntered();
    LookAhead();
    if (mAhead != AHEAD::End) {
        FailHere("unexpected element ", Quoted(mNext.name));
    }
    if (!IsBlankText(mText)) {
        FailHere("unexpected text ", Quoted(WithoutBlanks(mText)));
    }
    for (const ATTRIBUTE& attribute : mElements.back().attributes) {
        if (!attribute.isAsked) {
            FailHere("unexpected attribute ", Quoted(attribute.name));
        }
    }
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
    if (attribute == nullptr) {
        FailHere("attribute ", Quoted(name), " is missing");
    }
    return attribute->value;
}

std::string CXMLKEYREADER::GetText() {
    RequireEntered();
    LookAhead();
    return std::exchange(mText, {});
}

CKEYREADER::PLACE CXMLKEYREADER::GetPlace() const noexcept {
    return PlaceAt(mTagAt == kGone ? mTag : PositionOf(mTagAt));
}

void CXMLKEYREADER::RequireEntered() const {
    if (mElements.empty()) {
        FailHere("no element has been entered");
    }
}

CXMLKEYREADER::ATTRIBUTE* CXMLKEYREADER::FindAttribute(std::string_view name) {
    RequireEntered();
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
            ReadMarkup(false);
            brackets = 0;
        } else if (mElements.empty()) {
            if (!SkipBlanks()) {
                FailWanted("an element");
            }
        } else if (PeekByte() == '&') {
            Append(mText, ReadReference());
            brackets = 0;
        } else {
            const char character = Take();
            if (character == '>' && brackets >= 2) {
                --mAt;
                FailAtByte("']]>' found in a text");
            }
            brackets = character == ']' ? brackets + 1 : 0;
            Append(mText, character);
            if (brackets == 0) {
                AppendRun(mText, IsPlain);
            }
        }
    }
}

// A byte-order mark, blanks and a declaration, all optional, and the first markup after them.
void CXMLKEYREADER::ReadProlog() {
    mHasMark = PeekByte() == 0xEF;
    if (mHasMark) {
        for (const char byte : {'\xEF', '\xBB', '\xBF'}) {
            if (!Skip(byte)) {
                FailAtByte("neither '<' nor a byte-order mark of UTF-8 found");
            }
        }
        --mPosition.column;  // the mark is not a character of the document
    }
    SkipBlanks();
    Expect("<");
    ReadMarkup(true);
}

// After a '<'.
void CXMLKEYREADER::ReadMarkup(bool isFirst) {
    mTagAt = mAt - 1;
    if (Skip('/')) {
        ReadEndTag();
    } else if (Skip('?')) {
        ReadInstruction(isFirst);
    } else if (!Skip('!')) {
        ReadStartTag();
    } else if (Skip('-')) {
        SkipComment();
    } else {
        ReadCData();
    }
}

// After "<?".
void CXMLKEYREADER::ReadInstruction(bool isFirst) {
    const std::string target = ReadName();
    if (IsSameWord(target, "xml")) {
        if (!isFirst || target != "xml") {
            FailHere("<?", target, " found: a declaration is <?xml, at the beginning only");
        }
        ReadDeclaration();
        return;
    }
    if (!IsBlank(PeekByte()) && PeekByte() != '?') {
        FailWanted("a blank or '?>'");
    }
    while (Take() != '?' || !Skip('>')) {
    }
}

void CXMLKEYREADER::ReadDeclaration() {
    const std::vector<ATTRIBUTE> attributes = ReadAttributes();
    Expect("?>");
    if (attributes.empty() || attributes.front().name != "version") {
        FailHere("the declaration does not begin with the version");
    }
    for (const ATTRIBUTE& each : attributes) {
        UseDeclared(each);
    }
}

void CXMLKEYREADER::UseDeclared(const ATTRIBUTE& attribute) {
    const std::string& value = attribute.value;
    if (attribute.name == "encoding") {
        const bool isUtf8 = IsSameWord(value, "utf-8");
        if (!isUtf8 && !IsSameWord(value, "windows-1252")) {
            FailHere("encoding ", Quoted(value), " found, UTF-8 or windows-1252 wanted");
        }
        if (!isUtf8 && mHasMark) {
            FailHere("encoding ", Quoted(value), " found after a byte-order mark of UTF-8");
        }
        mIsUtf8 = isUtf8;
    } else if (attribute.name == "version") {
        if (value != "1.0") {
            FailHere("XML version ", Quoted(value), " found, 1.0 wanted");
        }
    } else if (attribute.name != "standalone" || (value != "yes" && value != "no")) {
        FailHere("unexpected ", Quoted(attribute.name), " with the value ", Quoted(value), " in the declaration");
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
    const std::string name = ReadName();
    if (mElements.empty()) {
        FailHere("</", std::string_view(name).substr(0, kMaxShownName), "> found, an element wanted");
    }
    if (const std::string_view wanted = mElements.back().name; name != wanted) {
        FailHere("</", std::string_view(name).substr(0, kMaxShownName), "> found, </", wanted.substr(0, kMaxShownName),
                 "> wanted");
    }
    SkipBlanks();
    Expect(">");
    if (mElements.back().hasChildren) {
        EndBlanks();
    }
    mAhead = AHEAD::End;
}

// Beside elements stand blanks only.
void CXMLKEYREADER::EndBlanks() {
    if (!IsBlankText(mText)) {
        FailHere("text ", Quoted(WithoutBlanks(mText)), " found beside elements");
    }
    mText.clear();
}

// After "<!-".
void CXMLKEYREADER::SkipComment() {
    Expect("-");
    while (Take() != '-' || !Skip('-')) {
    }
    Expect(">");
}

// After "<!".
void CXMLKEYREADER::ReadCData() {
    if (PeekByte() != '[') {
        FailHere("a comment or '<![CDATA[' is wanted after '<!': a document type is refused");
    }
    Expect("[CDATA[");
    if (mElements.empty()) {
        FailHere("a CDATA section found, an element wanted");
    }
    const std::size_t start = mText.size();
    while (!std::string_view(mText).substr(start).ends_with("]]>")) {
        Append(mText, Take());
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
        for (const ATTRIBUTE& each : attributes) {
            if (each.name == attribute.name) {
                FailAtByte("the tag has the attribute ", Quoted(each.name), " twice");
            }
        }
        if (attributes.size() == CXMLKEYWRITER::kMaxAttributes) {
            FailAtByte("the tag has more than ", CXMLKEYWRITER::kMaxAttributes, " attributes");
        }
        attributes.push_back(std::move(attribute));
    }
    return attributes;
}

std::string CXMLKEYREADER::ReadName() {
    std::string name;
    while (IsXmlNameCharacter(static_cast<char>(PeekByte()))) {
        AppendRun(name, IsXmlNameCharacter);
    }
    if (name.empty()) {
        FailWanted("a name");
    }
    if (!IsXmlName(name)) {
        FailAtByte(Quoted(name), " is not a name: a name begins with a letter or '_'");
    }
    return name;
}

std::string CXMLKEYREADER::ReadQuoted() {
    const char quote = Skip('"') ? '"' : '\'';
    if (quote == '\'' && !Skip('\'')) {
        FailWanted("a value in quotes");
    }
    std::string text;
    for (AppendRun(text, IsPlain); !Skip(quote); AppendRun(text, IsPlain)) {
        if (PeekByte() == '&') {
            Append(text, ReadReference());
        } else {
            const char character = Take();
            if (character == '<') {
                --mAt;
                FailAtByte("'<' found in the value of an attribute");
            }
            Append(text, IsBlank(character) ? ' ' : character);
        }
    }
    return text;
}

char CXMLKEYREADER::ReadReference() {
    Expect("&");
    std::string reference;
    char character = '\0';
    while (reference.size() < kLongestReference &&
           (PeekByte() == '#' || IsXmlNameCharacter(static_cast<char>(PeekByte())))) {
        reference += Take();
    }
    if (!Skip(';') || !ReadXmlReference(reference, character)) {
        FailAtByte("'&", reference,
                   "' found, wanted '&amp;', '&lt;', '&gt;', '&quot;', '&apos;' or a number as '&#233;'");
    }
    return character;
}

// ---- the characters

int CXMLKEYREADER::PeekByte() { return mAt != mSize || ReadBytes() ? static_cast<unsigned char>(mBytes[mAt]) : kNone; }

// One by one from a stream that cannot take back what stands after the document.
bool CXMLKEYREADER::ReadBytes() {
    mTag = mTagAt == kGone ? mTag : PositionOf(mTagAt);
    mTagAt = kGone;
    mPosition = PositionOf(mSize);
    mAt = mSize = 0;
    const long wanted = mRandom != nullptr ? static_cast<long>(mBytes.size()) : 1L;
    mSize =
        static_cast<std::size_t>(std::clamp(mStream.GetValue(static_cast<void*>(mBytes.data()), wanted), 0L, wanted));
    return mSize != 0;
}

int CXMLKEYREADER::TakeByte() {
    const int byte = PeekByte();
    if (byte == kNone) {
        FailAtByte("the document ends too early");
    }
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
    if (static_cast<unsigned char>(byte) < 0x20 && !IsBlank(character)) {
        --mAt;
        FailAtByte("control character ", Quoted({&character, 1}), " found");
    }
    return character;
}

char CXMLKEYREADER::TakeUtf8() {
    std::string sequence(1, static_cast<char>(TakeByte()));
    while (sequence.size() < 4 && PeekByte() != kNone && IsUtf8Continuation(static_cast<char>(PeekByte()))) {
        sequence += static_cast<char>(TakeByte());
    }
    int lost = 0;
    const std::string character = AnsiFromUtf8(sequence, &lost);
    if (lost != 0) {
        POSITION position = PositionOf(mAt);
        position.column -= IsUtf8Continuation(sequence.front()) ? 0 : 1;
        FailAt(PlaceAt(position), "bytes found that are not UTF-8, or a character that code page 1252 lacks");
    }
    return character.front();  // all of it: no other character begins with such a byte
}

void CXMLKEYREADER::Expect(const char* text) {
    for (const char* each = text; *each != '\0'; ++each) {
        if (!Skip(*each)) {
            FailWanted(text);
        }
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

void CXMLKEYREADER::RequireRoom(std::size_t size) const {
    if (size > CXMLKEYWRITER::kMaxText) {
        FailAtByte("a name, a value or a text is longer than ", CXMLKEYWRITER::kMaxText, " characters");
    }
}

void CXMLKEYREADER::Append(std::string& text, char character) const {
    RequireRoom(text.size() + 1);
    text += character;
}

// The characters ahead that `isOfRun` accepts, as far as they have been read.
template <class Predicate>
void CXMLKEYREADER::AppendRun(std::string& text, const Predicate& isOfRun) {
    const char* const first = mBytes.data() + mAt;
    const char* const last = std::find_if_not(first, static_cast<const char*>(mBytes.data() + mSize), isOfRun);
    RequireRoom(text.size() + static_cast<std::size_t>(last - first));
    text.append(first, last);
    mAt += static_cast<std::size_t>(last - first);
}

void CXMLKEYREADER::PutBack() {
    if (mRandom != nullptr && mAt != mSize) {
        mRandom->SetPosition(mRandom->GetPosition() - (mSize - mAt));
        mAt = mSize;
    }
}

// ---- the places of failures

CXMLKEYREADER::POSITION CXMLKEYREADER::PositionOf(std::size_t at) const noexcept {
    POSITION position = mPosition;
    const char* first = mBytes.data();
    const char* const last = first + at;
    for (const void* end = nullptr;
         (end = std::memchr(first, '\n', static_cast<std::size_t>(last - first))) != nullptr;) {
        first = static_cast<const char*>(end) + 1;
        position = {position.line + 1, 1};
    }
    position.column += static_cast<unsigned long long>(last - first);
    if (mIsUtf8) {  // the first byte of a character counts
        position.column -= static_cast<unsigned long long>(std::count_if(first, last, IsUtf8Continuation));
    }
    return position;
}

CKEYREADER::PLACE CXMLKEYREADER::PlaceAt(const POSITION& position) const noexcept {
    return {position.line, position.column, mElements.empty() ? std::string_view() : mElements.back().name};
}

// Where the reader has come to inside a tag or a text.
template <class... Parts>
void CXMLKEYREADER::FailAtByte(const Parts&... parts) const {
    FailAt(PlaceAt(PositionOf(mAt)), parts...);
}

void CXMLKEYREADER::FailWanted(const char* wanted) {
    if (PeekByte() == kNone) {
        FailAtByte("the document ends here, wanted ", wanted);
    }
    const PLACE place = PlaceAt(PositionOf(mAt));
    const char found = Take();
    FailAt(place, Quoted({&found, 1}), " found, wanted ", wanted);
}

}  // namespace MLCore
