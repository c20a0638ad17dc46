#include <MLCore/keys/detail/XmlCharacters.h>

#include <MLCore/text/CodePage1252.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <system_error>

namespace MLCore {

namespace {

constexpr struct {
    std::string_view name;
    char character;
} kEntities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

/// Characters that parsers normalise or may refuse. The bytes that the code page leaves undefined stand for the
/// controls of the same number.
constexpr std::string_view kByNumber = "\t\n\r\x7F\x81\x8D\x8F\x90\x9D";

/// By byte.
constexpr std::array<bool, 256> kIsPlain = [] {
    std::array<bool, 256> plain{};
    plain.fill(true);
    for (const auto& entity : kEntities) {
        plain[static_cast<unsigned char>(entity.character)] = false;
    }
    for (const char character : kByNumber) {
        plain[static_cast<unsigned char>(character)] = false;
    }
    return plain;
}();

void AppendReference(std::string& out, char character) {
    const auto* const entity = std::find_if(std::begin(kEntities), std::end(kEntities),
                                            [character](const auto& row) { return row.character == character; });
    out += '&';
    if (entity != std::end(kEntities)) {
        out += entity->name;
    } else {
        out += '#';
        out += std::to_string(static_cast<unsigned char>(character));
    }
    out += ';';
}

bool IsLetter(char character) noexcept {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') || character == '_';
}

}  // namespace

bool IsXmlNameCharacter(char character) noexcept {
    return IsLetter(character) || (character >= '0' && character <= '9') || character == '-' || character == '.';
}

bool IsXmlName(std::string_view name) noexcept {
    return !name.empty() && IsLetter(name.front()) && std::all_of(name.begin(), name.end(), IsXmlNameCharacter);
}

bool IsXmlText(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char character) {
        return static_cast<unsigned char>(character) >= 0x20 || character == '\t' || character == '\n' ||
               character == '\r';
    });
}

void AppendXmlText(std::string& out, std::string_view text) {
    for (const char character : text) {
        if (kIsPlain[static_cast<unsigned char>(character)]) {
            out += character;
        } else {
            AppendReference(out, character);
        }
    }
}

bool ReadXmlReference(std::string_view reference, char& character) noexcept {
    if (!reference.starts_with('#')) {
        const auto* const entity = std::find_if(std::begin(kEntities), std::end(kEntities),
                                                [reference](const auto& row) { return row.name == reference; });
        character = entity != std::end(kEntities) ? entity->character : '\0';
        return entity != std::end(kEntities);
    }
    const bool isHex = reference.starts_with("#x");
    reference.remove_prefix(isHex ? 2 : 1);
    unsigned int code = 0;
    const auto [end, error] =
        std::from_chars(reference.data(), reference.data() + reference.size(), code, isHex ? 16 : 10);
    const int byte = AnsiFromCodePoint(code);
    character = static_cast<char>(byte);
    return error == std::errc() && end == reference.data() + reference.size() && byte >= 0 &&
           IsXmlText({&character, 1});
}

}  // namespace MLCore
