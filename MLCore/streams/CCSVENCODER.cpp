#include <MLCore/streams/CCSVENCODER.h>

#include <algorithm>

namespace MLCore {

namespace {

constexpr char kQuote = '"';
constexpr char kSeparator = ';';
/// Room for two around a text, and for one pair inside.
constexpr std::size_t kUsualQuotes = 4;

}  // namespace

CCSVENCODER::~CCSVENCODER() = default;

std::string CCSVENCODER::Encode(const std::string& text) {
    if (text.find(kSeparator) == std::string::npos && text.find(kQuote) == std::string::npos) {
        return text;
    }
    std::string encoded;
    encoded.reserve(text.size() + kUsualQuotes);
    encoded += kQuote;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = text.find(kQuote, from)) != std::string::npos; from = at + 1) {
        encoded.append(text, from, at + 1 - from) += kQuote;
    }
    return encoded.append(text, from) += kQuote;
}

std::string CCSVENCODER::Decode(const std::string& text) {
    if (text.size() < 2 || text.find(kQuote) == std::string::npos) {
        return text;
    }
    std::string_view content = text;
    if (content.front() == kQuote && content.back() == kQuote) {
        content = content.substr(1, content.size() - 2);
    }
    std::string decoded(content.size(), '\0');
    const auto end = std::unique_copy(content.begin(), content.end(), decoded.begin(),
                                      [](char left, char right) { return left == kQuote && right == kQuote; });
    decoded.erase(end, decoded.end());
    return decoded;
}

}  // namespace MLCore
