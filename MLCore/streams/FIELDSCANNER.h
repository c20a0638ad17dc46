#pragma once

#include <MLCore/streams/detail/SpecialCharacters.h>

#include <cstddef>
#include <string_view>

namespace MLCore {

/// Finds where the fields and lines of a text end. The text may come in pieces: the scanner keeps the state of the
/// current field from one piece to the next. CISTREAMDECORATORFIELD and CISTREAMDECORATORTEXT use it. A program can use
/// it to read a text that lies in memory or comes in blocks.
///
///     FIELDSCANNER scanner(';');
///     std::vector<std::string> fields(1);
///     for (std::string_view rest = "1;\"a;b\"\r\n"; !rest.empty();) {
///         const FIELDSCANNER::PIECE piece = scanner.Next(rest);
///         fields.back() += piece.text;
///         rest.remove_prefix(piece.taken);
///         if (piece.end == FIELDSCANNER::END::Field) {
///             fields.emplace_back();
///         }
///     }  // fields: 1 and "a;b", with its quotes
///
/// The rules: LF ends a line. Every CR is dropped. The separator ends a field when an even number of double quotes
/// stands before it in the field. Quotes belong to the field: a CENCODER removes them. If the separator is LF or CR,
/// the rule for that character applies. If it is a double quote, each second one ends a field.
class FIELDSCANNER {
public:
    /// The meaning of a line end after an odd number of double quotes.
    enum class QUOTEDLINES : unsigned char {
        End,   ///< it ends the line, and with it the field
        Stay,  ///< it belongs to the field, CR and LF as they stand
    };
    /// The end that follows a piece.
    enum class END : unsigned char {
        None,   ///< more of the same field, or nothing
        Field,  ///< a separator
        Line,   ///< a line end
    };
    struct PIECE {
        std::string_view text;  ///< characters of the field; part of the bytes that were given
        std::size_t taken = 0;  ///< how many bytes were scanned: the text, and the end or the CR after it
        END end = END::None;
        bool hasQuotes = false;  ///< the field has double quotes, in this piece or an earlier one
    };

    /// Scans fields and lines. The separator '\n' has no effect: then each line is one field.
    explicit constexpr FIELDSCANNER(char separator, QUOTEDLINES quotedLines = QUOTEDLINES::End) noexcept
        : mSeparator(separator), mQuotedLines(quotedLines) {}

    /// Scans `bytes` up to the first end, to the first CR that is dropped, or to the end of `bytes`. Takes at least a
    /// byte, unless `bytes` is empty. After a piece with an end, the next call begins a new field.
    [[nodiscard]] PIECE Next(std::string_view bytes) noexcept;

private:
    static constexpr char kQuote = '"';

    char mSeparator;
    QUOTEDLINES mQuotedLines;
    std::size_t mQuotes = 0;  // in the field so far
};

inline FIELDSCANNER::PIECE FIELDSCANNER::Next(std::string_view bytes) noexcept {
    const char* const end = bytes.data() + bytes.size();
    std::size_t quotes = mQuotes;
    const char* at = bytes.data();
    for (; (at = FindSpecial(at, end, mSeparator)) != end; ++at) {
        quotes += *at == kQuote ? 1 : 0;
        const bool isQuoted = quotes % 2 != 0;
        if (isQuoted && mQuotedLines == QUOTEDLINES::Stay) {
            continue;
        }
        if (*at == '\r' || *at == '\n' || (*at == mSeparator && !isQuoted)) {
            break;
        }
    }
    PIECE piece;
    piece.text = std::string_view(bytes.data(), static_cast<std::size_t>(at - bytes.data()));
    if (at != end) {
        const char found = *at++;
        if (found != '\r') {
            piece.end = found == '\n' ? END::Line : END::Field;
        } else if (at != end && *at == '\n') {
            piece.end = END::Line;
            ++at;
        }
    }
    piece.taken = static_cast<std::size_t>(at - bytes.data());
    piece.hasQuotes = quotes != 0;
    mQuotes = piece.end == END::None ? quotes : 0;
    return piece;
}

}  // namespace MLCore
