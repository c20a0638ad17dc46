#include <MLCore/streams/CCSVENCODER.h>

#include <algorithm>
#include <iterator>
#include <string_view>

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
    std::string encoded(1, kQuote);
    for (const char character : text) {
        encoded.append(character == kQuote ? 2 : 1, character);
    }
    return encoded += kQuote;
}

std::string CCSVENCODER::Decode(const std::string& text) {
    if (text.size() < 2 || text.find(kQuote) == std::string::npos) {
        return text;
    }
    std::string_view content = text;
    if (content.front() == kQuote && content.back() == kQuote) {
        content = content.substr(1, content.size() - 2);
    }
    std::string decoded;
    std::unique_copy(content.begin(), content.end(), std::back_inserter(decoded),
                     [](char left, char right) { return left == kQuote && right == kQuote; });
    return decoded;
}

}  // namespace MLCore
