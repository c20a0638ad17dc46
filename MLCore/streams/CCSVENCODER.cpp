#include <MLCore/streams/CCSVENCODER.h>

#include <algorithm>

namespace MLCore {

namespace {

constexpr char kQuote = '"';
constexpr char kSeparator = ';';

}  // namespace

CCSVENCODER::~CCSVENCODER() = default;

std::string CCSVENCODER::Encode(const std::string& text) {
    if (text.find(kSeparator) == std::string::npos && text.find(kQuote) == std::string::npos) {
        return text;
    }
    std::string encoded(text.size() + 2 + static_cast<std::size_t>(std::count(text.begin(), text.end(), kQuote)),
                        kQuote);
    Quote(text, encoded.data());
    return encoded;
}

char* CCSVENCODER::Quote(std::string_view text, char* encoded) noexcept {
    *encoded++ = kQuote;
    for (const char character : text) {
        *encoded++ = character;
        *encoded = kQuote;  // a second one, or where the next character goes
        encoded += character == kQuote ? 1 : 0;
    }
    *encoded++ = kQuote;
    return encoded;
}

std::string CCSVENCODER::Decode(const std::string& text) {
    std::string decoded;
    Unquote(text, decoded);
    return decoded;
}

void CCSVENCODER::Unquote(std::string_view text, std::string& decoded) {
    if (text.size() >= 2 && text.front() == kQuote && text.back() == kQuote) {
        text = text.substr(1, text.size() - 2);
    }
    decoded.resize(text.size());
    const auto end = std::unique_copy(text.begin(), text.end(), decoded.begin(),
                                      [](char left, char right) { return left == kQuote && right == kQuote; });
    decoded.erase(end, decoded.end());
}

}  // namespace MLCore
