#include <MLCore/streams/CISTREAMDECORATORTEXT.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/ExactClass.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>
#include <MLCore/streams/detail/STREAMPLACE.h>
#include <MLCore/text/Blanks.h>
#include <MLCore/text/DecimalText.h>
#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace MLCore {

namespace {

constexpr long kLongestToken = 32767;
/// How much of a line is skipped at a time: it may lie in no memory yet.
constexpr std::size_t kSkippedStep = 4096;
constexpr unsigned long long kUnknown = ~0ULL;
/// For the scanner: a separator that never separates.
constexpr char kNoSeparator = '\n';

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

/// What the failures of a typed read say was wanted: the range is that of a whole number.
struct CISTREAMDECORATORTEXT::WANTED {
    const char* noun;
    long long lowest = 0;
    long long highest = 0;
};

CISTREAMDECORATORTEXT::CISTREAMDECORATORTEXT(CISTREAM& component)
    : CISTREAMDECORATORTEXT(component, typeid(CISTREAMDECORATORTEXT)) {}

CISTREAMDECORATORTEXT::CISTREAMDECORATORTEXT(CISTREAM& component, const std::type_info& own)
    : CSTREAM(component.GetOpenMode()), CISTREAMDECORATOR(component), mOwn(&own) {}

CISTREAMDECORATORTEXT::~CISTREAMDECORATORTEXT() = default;

long CISTREAMDECORATORTEXT::GetValue(void* buffer, long count) {
    RequireBuffer(buffer, count, "read into");
    char* const text = static_cast<char*>(buffer);
    long total = 0;
    long read = 0;
    long kept = 0;
    do {
        read = GetComponent().GetValue(static_cast<void*>(text + total), count - total);
        kept = static_cast<long>(std::remove(text + total, text + total + read, '\r') - (text + total));
        total += kept;
    } while (kept < read && GetComponent().IsEnd() == 0);
    return total;
}

long CISTREAMDECORATORTEXT::GetValue(COSTREAM& out) { return CISTREAM::GetValue(out); }

/// The component's memory, where lines can be looked for without a call for each character; null where a derived class
/// may say where lines and the text end.
inline STREAMCURSOR* CISTREAMDECORATORTEXT::GetLent() const noexcept {
    return IsExactly(*this, *mOwn) ? GetComponent().mLent : nullptr;
}

inline FIELDSCANNER::PIECE CISTREAMDECORATORTEXT::TakeAhead(STREAMCURSOR& lent, FIELDSCANNER& scanner,
                                                            std::size_t limit) noexcept {
    const FIELDSCANNER::PIECE piece = scanner.Next(lent.Ahead().substr(0, limit));
    lent.Pass(piece.taken);
    if (piece.end == FIELDSCANNER::END::Line) {
        mIsEndOfLine = 1;
    }
    return piece;
}

std::string_view CISTREAMDECORATORTEXT::ReadCharacters(char separator, std::size_t limit, bool& hasQuotes) {
    FIELDSCANNER scanner(separator);
    std::string_view text;
    if (STREAMCURSOR* const lent = mIsEndOfLine == 0 ? GetLent() : nullptr) {
        const FIELDSCANNER::PIECE piece = TakeAhead(*lent, scanner, limit);
        text = piece.text;
        if (piece.end != FIELDSCANNER::END::None) {
            hasQuotes = piece.hasQuotes;
            return text;
        }
    }
    hasQuotes = true;  // perhaps
    return ReadRest(scanner, limit, text);
}

/// Reads on to the end of the field or line that begins with `text`.
std::string_view CISTREAMDECORATORTEXT::ReadRest(FIELDSCANNER scanner, std::size_t limit, std::string_view text) {
    mBuffer = text;
    int isEnd = IsEnd();
    if (isEnd != 0) {
        RequireOpen();
    }
    for (FIELDSCANNER::PIECE piece; isEnd == 0 && mBuffer.size() < limit && IsEndOfLine() == 0; isEnd = IsEnd()) {
        char one = '\0';
        STREAMCURSOR* const lent = GetLent();
        if (lent != nullptr && !lent->Ahead().empty()) {
            piece = TakeAhead(*lent, scanner, limit - mBuffer.size());
        } else if (GetValue(static_cast<void*>(&one), 1L) > 0) {
            piece = scanner.Next(std::string_view(&one, 1));
            mIsEndOfLine |= piece.end == FIELDSCANNER::END::Line ? 1 : 0;
        } else {
            break;
        }
        mBuffer += piece.text;
        if (piece.end != FIELDSCANNER::END::None) {
            break;
        }
    }
    return mBuffer;
}

/// A closed component is at its end, and has a failure that says more.
void CISTREAMDECORATORTEXT::RequireOpen() {
    char none = '\0';
    GetComponent().GetValue(static_cast<void*>(&none), 0L);
}

std::string CISTREAMDECORATORTEXT::ReadToken(const char* wanted) {
    if (mIsEndOfLine == 0 && IsEnd() != 0) {
        FailEnd(wanted);
    }
    std::string token;
    GetValue(token, kLongestToken);
    return token;
}

void CISTREAMDECORATORTEXT::FailEnd(const char* wanted) {
    char none = '\0';
    GetValue(static_cast<void*>(&none), 1L);  // a closed component has a failure of its own
    FailWith(kErrStreamEnd, "the text has ended", STREAMPLACE("at", *this).GetText(), ": wanted ", wanted);
}

void CISTREAMDECORATORTEXT::FailText(std::string_view text, const WANTED& wanted, unsigned long long start) const {
    const STREAMCURSOR* const lent = GetComponent().mLent;
    const STREAMPLACE place =
        lent != nullptr && start != kUnknown ? STREAMPLACE(*lent, start) : STREAMPLACE("before", *this);
    if (wanted.highest == 0) {
        FailWith(kErrValueType, Quoted(text), " is not ", wanted.noun, place.GetText());
    }
    FailWith(kErrValueType, Quoted(text), " is not ", wanted.noun, " from ", wanted.lowest, " to ", wanted.highest,
             place.GetText());
}

// The one way from text to a value: `parse` returns 0 for a text that is not wholly a value.
template <class Value, class Parse>
void CISTREAMDECORATORTEXT::ReadParsed(Value& value, const WANTED& wanted, Parse parse) {
    const STREAMCURSOR* const lent = GetComponent().mLent;
    const unsigned long long start = lent != nullptr ? lent->GetPosition() : kUnknown;
    const std::string token = ReadToken(wanted.noun);
    const std::string_view text = Trim(token);
    Value parsed{};
    if (!text.empty() && parse(text, parsed) == 0) {
        FailText(text, wanted, start);
    }
    value = parsed;
}

template <class Stored, long long Lowest, class Value>
void CISTREAMDECORATORTEXT::ReadInteger(Value& value) {
    static constexpr WANTED kWanted = {"a whole number", Lowest, std::numeric_limits<Stored>::max()};
    ReadParsed(value, kWanted, [](std::string_view text, Value& parsed) {
        long long number = 0;
        if (ParseInteger(text, number) == 0 || number < kWanted.lowest || number > kWanted.highest) {
            return 0;
        }
        parsed = static_cast<Stored>(number);
        return 1;
    });
}

template <class Value>
void CISTREAMDECORATORTEXT::ReadFromString(Value& value, const WANTED& wanted) {
    ReadParsed(value, wanted, [](std::string_view text, Value& parsed) {
        // A zero byte would hide the characters after it.
        return text.find('\0') == std::string_view::npos ? parsed.FromString(std::string(text).c_str()) : 0;
    });
}

void CISTREAMDECORATORTEXT::GetValue(CDATETIME& value) {
    static constexpr WANTED kWanted = {"a date and a time of day"};
    ReadFromString(value, kWanted);
}

void CISTREAMDECORATORTEXT::GetValue(CTIME& value) {
    static constexpr WANTED kWanted = {"a time of day"};
    ReadFromString(value, kWanted);
}

void CISTREAMDECORATORTEXT::GetValue(CDATE& value) {
    static constexpr WANTED kWanted = {"a date"};
    ReadFromString(value, kWanted);
}

void CISTREAMDECORATORTEXT::GetValue(double& value) {
    static constexpr WANTED kWanted = {"a number"};
    ReadParsed(value, kWanted, ParseDouble);
}

void CISTREAMDECORATORTEXT::GetValue(unsigned long& value) {
    ReadInteger<std::uint32_t, std::numeric_limits<std::int32_t>::min()>(value);
}

void CISTREAMDECORATORTEXT::GetValue(unsigned short& value) { ReadInteger<unsigned short, 0>(value); }

void CISTREAMDECORATORTEXT::GetValue(long& value) {
    ReadInteger<std::int32_t, std::numeric_limits<std::int32_t>::min()>(value);
}

void CISTREAMDECORATORTEXT::GetValue(short& value) { ReadInteger<short, std::numeric_limits<short>::min()>(value); }

void CISTREAMDECORATORTEXT::GetValue(std::string& value, long length) {
    RequireLength(length);
    bool hasQuotes = false;
    value = ReadCharacters(kNoSeparator, static_cast<std::size_t>(length), hasQuotes);
}

void CISTREAMDECORATORTEXT::FailLength(long length) {
    FailWith(kErrStreamEnd, "cannot read a text of ", length, " characters: wanted a length from 0");
}

void CISTREAMDECORATORTEXT::GetValue(char* buffer, long length) {
    Require(buffer != nullptr, kErrNull, "the buffer for a text of ", length, " characters is null");
    std::string text;
    GetValue(text, length);
    // Decoding may have made it longer than the text that was read.
    buffer[text.copy(buffer, static_cast<std::size_t>(length))] = '\0';
}

void CISTREAMDECORATORTEXT::GetValue(char& value) {
    char character = '\0';
    if (GetValue(static_cast<void*>(&character), 1L) != 1) {
        FailWith(kErrStreamEnd, "the text has ended", STREAMPLACE("at", *this).GetText(), ": wanted a character");
    }
    mIsEndOfLine = IsEOL(character);
    value = character;
}

void CISTREAMDECORATORTEXT::GetValueBOOL(int& value) {
    ReadInteger<std::int32_t, std::numeric_limits<std::int32_t>::min()>(value);
}

int CISTREAMDECORATORTEXT::IsEndOfLine() const { return mIsEndOfLine != 0 ? 1 : CISTREAMDECORATOR::IsEndOfLine(); }

void CISTREAMDECORATORTEXT::ReadLine(std::string& line) {
    bool hasQuotes = false;
    line = ReadCharacters(kNoSeparator, std::string::npos, hasQuotes);
    ClearEndOfLine();
}

void CISTREAMDECORATORTEXT::GetNextLine() {
    bool hasQuotes = false;
    while (ReadCharacters(kNoSeparator, kSkippedStep, hasQuotes).size() == kSkippedStep && mIsEndOfLine == 0) {
    }
    ClearEndOfLine();
}

}  // namespace MLCore
