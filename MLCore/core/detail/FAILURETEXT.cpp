#include <MLCore/core/detail/FAILURETEXT.h>

#include <MLCore/platform/LastError.h>

#include <algorithm>
#include <charconv>

namespace MLCore {

namespace {

constexpr std::string_view kCut = "...";

}  // namespace

std::string SystemReason(unsigned int code) {
    std::string message = platform::SystemMessage(platform::ResultOfSystemCode(code));
    message.erase(message.find_last_not_of(" .\r\n") + 1);
    return message;
}

FAILURETEXT::FAILURETEXT(std::initializer_list<FAILUREPART> parts) noexcept {
    for (const FAILUREPART& part : parts) {
        Add(part);
    }
}

void FAILURETEXT::Add(const FAILUREPART& part) noexcept {
    switch (part.mKind) {
        case FAILUREPART::KIND::Text:
            return Add(part.mText);
        case FAILUREPART::KIND::Quoted:
            return AddQuoted({}, part.mText.substr(0, kMaxQuoted), part.mText.size() > kMaxQuoted ? kCut : "");
        case FAILUREPART::KIND::Path: {
            const std::size_t left = part.mText.size() > kMaxQuoted ? part.mText.size() - kMaxQuoted : 0;
            return AddQuoted(left > 0 ? kCut : "", part.mText.substr(left), {});
        }
        case FAILUREPART::KIND::Signed:
            return AddNumber(part.mSigned);
        case FAILUREPART::KIND::Unsigned:
            return AddNumber(part.mUnsigned);
        case FAILUREPART::KIND::Double:
            return AddNumber(part.mDouble);
    }
}

void FAILURETEXT::Add(std::string_view text) noexcept {
    const std::size_t fitting = std::min(text.size(), kMaxLength - mLength);
    std::copy_n(text.data(), fitting, mText.data() + mLength);
    mLength += fitting;
    if (fitting < text.size()) {
        std::copy(kCut.begin(), kCut.end(), mText.data() + kMaxLength - kCut.size());
    }
}

void FAILURETEXT::AddQuoted(std::string_view before, std::string_view text, std::string_view after) noexcept {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    Add("'");
    Add(before);
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F) {
            const char escaped[] = {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 0xFU]};
            Add(std::string_view(escaped, sizeof(escaped)));
        } else {
            Add(std::string_view(&character, 1));
        }
    }
    Add(after);
    Add("'");
}

template <class Number>
void FAILURETEXT::AddNumber(Number number) noexcept {
    char digits[32];
    const auto written = std::to_chars(std::begin(digits), std::end(digits), number);
    Add(std::string_view(digits, static_cast<std::size_t>(written.ptr - digits)));
}

}  // namespace MLCore
