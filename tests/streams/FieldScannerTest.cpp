#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/CNULLENCODER.h>
#include <MLCore/streams/FIELDSCANNER.h>
#include <streams/Bytes.h>

namespace {

using namespace bytes;
using END = FIELDSCANNER::END;
using QUOTEDLINES = FIELDSCANNER::QUOTEDLINES;

/// Calls `look` with every text of up to `most` of these characters.
template <class Look>
void ForEachText(std::string_view characters, std::size_t most, const Look& look, const std::string& text = {}) {
    look(text);
    if (text.size() < most) {
        for (const char character : characters) {
            ForEachText(characters, most, look, text + character);
        }
    }
}

/// The rules, one character after the other: the characters of the fields, '|' after each field, '/' after each line.
std::string Expected(std::string_view text, char separator, QUOTEDLINES quotedLines) {
    std::string fields;
    bool isQuoted = false;
    for (const char character : text) {
        isQuoted ^= character == '"';
        if (isQuoted && quotedLines == QUOTEDLINES::Stay) {
            fields += character;
        } else if (character == '\n' || (character == separator && character != '\r' && !isQuoted)) {
            fields += character == '\n' ? '/' : '|';
            isQuoted = false;
        } else if (character != '\r') {
            fields += character;
        }
    }
    return fields;
}

/// What a scanner finds in the text, given in pieces of `step` bytes.
std::string Scanned(std::string_view text, std::size_t step, char separator, QUOTEDLINES quotedLines) {
    FIELDSCANNER scanner(separator, quotedLines);
    std::string fields;
    std::size_t start = 0;  // of the field
    while (!text.empty()) {
        const FIELDSCANNER::PIECE piece = scanner.Next(text.substr(0, step));
        EXPECT_GE(piece.taken, std::max<std::size_t>(piece.text.size(), 1));
        EXPECT_LE(piece.taken, std::min(step, text.size()));
        EXPECT_EQ(piece.text.data(), text.data());
        fields += piece.text;
        EXPECT_EQ(piece.hasQuotes, fields.find('"', start) != std::string::npos) << fields;
        if (piece.end != END::None) {
            fields += piece.end == END::Line ? '/' : '|';
            start = fields.size();
        }
        text.remove_prefix(piece.taken);
    }
    return fields;
}

TEST(FieldScannerTest, FindsTheEndsOfEveryShortText) {
    for (const char separator : ";\n\"\r\xE9"sv) {
        const std::string characters = std::string("\"\r\na") + separator;
        for (const QUOTEDLINES quotedLines : {QUOTEDLINES::End, QUOTEDLINES::Stay}) {
            std::size_t wrong = 0;
            ForEachText(characters, 6, [&](const std::string& text) {
                // Also where eight characters are looked at together.
                for (const std::string& whole : {text, "longer" + text + "than a word"}) {
                    const std::string expected = Expected(whole, separator, quotedLines);
                    for (const std::size_t step : {std::size_t{1}, std::size_t{3}, std::size_t{8}, whole.size() + 1}) {
                        const std::string found = Scanned(whole, step, separator, quotedLines);
                        if (found != expected && ++wrong < 5) {
                            ADD_FAILURE() << testing::PrintToString(whole) << " in steps of " << step << ": " << found
                                          << " instead of " << expected;
                        }
                    }
                }
            });
            EXPECT_EQ(wrong, 0U) << "separator " << static_cast<int>(separator);
        }
    }
}

/// A reader of fields as its description has it: each character is asked for by itself.
struct READER {
    std::string ReadNextValue(std::size_t limit) {
        std::string field;
        bool isQuoted = false;
        while (field.size() < limit && !isEndOfLine) {
            at = std::min(text.find_first_not_of('\r', at), text.size());
            if (at == text.size()) {
                break;
            }
            const char character = text[at++];
            isQuoted ^= character == '"';
            isEndOfLine = character == '\n';
            if (isEndOfLine || (character == ';' && !isQuoted)) {
                break;
            }
            field += character;
        }
        return field;
    }
    std::string text;
    std::size_t at = 0;
    bool isEndOfLine = false;
};

/// CRs that come next may have been dropped already.
std::string State(const std::string& field, const std::string& text, std::size_t at, bool isEndOfLine) {
    const std::size_t next = std::min(text.find_first_not_of('\r', at), text.size());
    return field + '@' + std::to_string(next) + (isEndOfLine || next == text.size() ? "L " : " ");
}

TEST(FieldScannerTest, ReadersOfFieldsFollowIt) {
    CNULLENCODER encoder;
    for (const unsigned limit : {1U, 2U, 3U, 9U}) {
        std::size_t wrong = 0;
        ForEachText("\";\r\na", 6, [&](const std::string& text) {
            std::string expected;
            READER model{text};
            for (int i = 0; i < 4; ++i, model.isEndOfLine &= i != 2) {
                const std::string field = model.ReadNextValue(limit);
                expected += State(field, text, model.at, model.isEndOfLine);
            }
            for (const bool isLent : {true, false}) {
                INPUT<CISTREAMDECORATORFIELD> input(text, isLent, ';', encoder);
                std::string read;
                std::string field;
                for (int i = 0; i < 4; ++i) {
                    input.stream.ReadNextValue(field, static_cast<long>(limit));
                    const auto position = static_cast<std::size_t>(input.buffer.GetPosition());
                    read += State(field, text, position, input.stream.IsEndOfLine() != 0);
                    if (i == 1) {
                        input.stream.ClearEndOfLine();
                    }
                }
                if (read != expected && ++wrong < 5) {
                    ADD_FAILURE() << testing::PrintToString(text) << " limit " << limit << ": " << read
                                  << " instead of " << expected;
                }
            }
        });
        EXPECT_EQ(wrong, 0U);
    }
}

}  // namespace
