#include <MLCore/net/CEMAIL.h>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>

namespace MLCore {

namespace {

// The enclosing characters of a word that is not an atom, and the characters that need a backslash in it.
struct ENCLOSURE {
    char open;
    char close;
    std::string_view refused;
};
constexpr ENCLOSURE kQuotedString = {'"', '"', "\n\r"};
constexpr ENCLOSURE kDomainLiteral = {'[', ']', "\n\r["};

constexpr std::size_t kWrong = std::string_view::npos;

// By unsigned byte, so that a char's sign does not matter.
constexpr std::array<bool, UCHAR_MAX + 1> MakeAtomBytes() {
    std::array<bool, UCHAR_MAX + 1> isAtom{};
    std::fill(isAtom.begin() + '!', isAtom.begin() + '~' + 1, true);
    for (const char special : std::string_view("[]()<>@,;:\\\".")) {
        isAtom[static_cast<unsigned char>(special)] = false;
    }
    return isAtom;
}
constexpr auto kIsAtomByte = MakeAtomBytes();

// The end of the atom that starts at `at`; an atom is not empty.
std::size_t SkipAtom(std::string_view text, std::size_t at) noexcept {
    const std::size_t start = at;
    while (at < text.size() && kIsAtomByte[static_cast<unsigned char>(text[at])]) {
        ++at;
    }
    return at > start ? at : kWrong;
}

// The place after the word's closing character; its opening one is at `at`.
std::size_t SkipEnclosed(std::string_view text, std::size_t at, const ENCLOSURE& enclosure) noexcept {
    while (++at < text.size()) {
        const char c = text[at];
        if (c == '\\') {
            ++at;
        } else if (c == enclosure.close) {
            return at + 1;
        } else if (enclosure.refused.find(c) != std::string_view::npos) {
            return kWrong;
        }
    }
    return kWrong;
}

// Whether the text is made of atoms and enclosed words with dots between, and perhaps a dot at the end.
bool IsWordList(std::string_view text, const ENCLOSURE& enclosure) noexcept {
    std::size_t at = 0;
    while (at < text.size()) {
        at = text[at] == enclosure.open ? SkipEnclosed(text, at, enclosure) : SkipAtom(text, at);
        if (at == kWrong || (at < text.size() && text[at++] != '.')) {
            return false;
        }
    }
    return !text.empty();
}

const char* TextOf(const char* text) noexcept { return text != nullptr ? text : ""; }

// The '@' that splits the address, or its end.
const char* FindSeparator(const char* address) noexcept {
    bool isQuoted = false;
    for (; *address != '\0' && (*address != '@' || isQuoted); ++address) {
        isQuoted = isQuoted != (*address == '"');
    }
    return address;
}

}  // namespace

CEMAIL::CEMAIL(const char* address) {
    address = TextOf(address);
    const char* const separator = FindSeparator(address);
    mLocalPart.assign(address, separator);
    if (*separator != '\0') {
        mDomain = separator + 1;
    }
}

CEMAIL::CEMAIL(const char* localPart, const char* domain) : mLocalPart(TextOf(localPart)), mDomain(TextOf(domain)) {}

void CEMAIL::Clear() noexcept {
    mLocalPart.clear();
    mDomain.clear();
}

int CEMAIL::IsNull() const noexcept { return mLocalPart.empty() && mDomain.empty() ? 1 : 0; }

int CEMAIL::IsValid() const noexcept {
    return !mLocalPart.empty() && !mDomain.empty() && CheckLocalPart() != 0 && CheckDomaine() != 0 ? 1 : 0;
}

std::string CEMAIL::ToString() const {
    return mLocalPart.empty() || mDomain.empty() ? std::string() : mLocalPart + '@' + mDomain;
}

int CEMAIL::CheckLocalPart() const noexcept { return IsWordList(mLocalPart, kQuotedString) ? 1 : 0; }

int CEMAIL::CheckDomaine() const noexcept { return IsWordList(mDomain, kDomainLiteral) ? 1 : 0; }

}  // namespace MLCore
