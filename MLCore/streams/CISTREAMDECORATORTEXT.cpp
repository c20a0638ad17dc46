#include <MLCore/streams/CISTREAMDECORATORTEXT.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>
#include <MLCore/streams/detail/OwnClass.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>
#include <MLCore/streams/detail/SpecialCharacters.h>
#include <MLCore/text/Blanks.h>
#include <MLCore/text/DecimalText.h>
#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

namespace MLCore {

namespace {

constexpr long kLongestToken = 32767;
constexpr char kQuote = '"';

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

CISTREAMDECORATORTEXT::CISTREAMDECORATORTEXT(CISTREAM& component)
    : CSTREAM(component.GetOpenMode()), CISTREAMDECORATOR(component) {}

CISTREAMDECORATORTEXT::~CISTREAMDECORATORTEXT() = default;

long CISTREAMDECORATORTEXT::GetValue(void* buffer, long count) {
    FailNullBuffer(buffer, count);
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

inline std::string_view CISTREAMDECORATORTEXT::BytesAhead() const noexcept {
    // A derived class may say where lines and the text end, and is asked often.
    const bool isOwn = IsOfClass<CISTREAMDECORATORTEXT, CISTREAMDECORATORFIELD>(*this);
    const STREAMCURSOR* const lent = isOwn ? GetComponent().mLent : nullptr;
    return lent != nullptr ? lent->Ahead().substr(0, std::numeric_limits<long>::max()) : std::string_view();
}

void CISTREAMDECORATORTEXT::ReadCharacters(std::string* text, std::size_t limit, const char* separator) {
    if (IsEnd() != 0) {
        char none = '\0';
        GetComponent().GetValue(static_cast<void*>(&none), 0L);  // a closed component has a failure of its own
    }
    const int stop = separator != nullptr ? static_cast<unsigned char>(*separator) : -1;
    bool isQuoted = false;
    bool isComplete = limit == 0;
    while (!isComplete && IsEnd() == 0 && IsEndOfLine() == 0) {
        char one = '\0';
        std::string_view bytes = BytesAhead();
        const bool isLent = !bytes.empty();
        if (!isLent) {
            bytes = std::string_view(&one, GetValue(static_cast<void*>(&one), 1L) > 0 ? 1 : 0);
        }
        std::size_t at = 0;
        std::size_t run = 0;  // where what is kept begins
        const auto keep = [&](std::size_t end) {
            if (text != nullptr) {
                text->append(bytes, run, end - run);
            }
            run = at;
        };
        while (at != bytes.size() && !isComplete) {
            const char character = bytes[at++];
            isQuoted ^= character == kQuote;
            if (IsEOLChar(character) != 0) {
                keep(at - 1);
                mIsEndOfLine = IsEOL(character);
                isComplete = mIsEndOfLine != 0;
            } else if (static_cast<unsigned char>(character) == stop && !isQuoted) {
                keep(at - 1);
                isComplete = true;
            } else {
                isComplete = --limit == 0;
            }
        }
        keep(at);
        if (isLent) {
            GetComponent().mLent->MoveOn(static_cast<long>(at));
        }
        isComplete = isComplete || bytes.empty();
    }
}

bool CISTREAMDECORATORTEXT::TakeAhead(std::string_view& text, std::size_t limit, const char* separator,
                                      bool& hasQuotes) {
    const std::string_view bytes = BytesAhead().substr(0, limit);
    const char* const end = bytes.data() + bytes.size();
    const char* at = bytes.data();
    const char stop = separator != nullptr ? *separator : '\n';
    bool isQuoted = false;
    for (; (at = FindSpecial(at, end, stop)) != end; ++at) {
        if (*at == kQuote) {
            isQuoted = !isQuoted;
            hasQuotes = true;
        }
        if (IsEOLChar(*at) != 0 || (*at == stop && !isQuoted)) {
            break;
        }
    }
    // A CR elsewhere than at the line end is to be dropped.
    const char* const last = at != end && *at == '\r' ? at + 1 : at;
    if (last == end || (last != at && IsEOL(*last) == 0)) {
        return false;
    }
    if (mIsEndOfLine != 0) {
        return false;
    }
    text = std::string_view(bytes.data(), static_cast<std::size_t>(at - bytes.data()));
    mIsEndOfLine = IsEOL(*last);
    GetComponent().mLent->MoveOn(static_cast<long>(last + 1 - bytes.data()));
    return true;
}

std::string CISTREAMDECORATORTEXT::ReadToken() {
    if (mIsEndOfLine == 0 && IsEnd() != 0) {
        char none = '\0';
        GetValue(static_cast<void*>(&none), 1L);  // a closed component has a failure of its own
        FailOSErr(kErrStreamEnd);
    }
    std::string token;
    GetValue(token, kLongestToken);
    return token;
}

// The one way from text to a value: `parse` answers 0 for what is not wholly a value.
template <class Value, class Parse>
void CISTREAMDECORATORTEXT::ReadParsed(Value& value, Parse parse) {
    const std::string token = ReadToken();
    const std::string_view text = Trim(token);
    Value parsed{};
    if (!text.empty() && parse(text, parsed) == 0) {
        FailOSErr(kErrValueType);
    }
    value = parsed;
}

template <class Stored, class Value>
void CISTREAMDECORATORTEXT::ReadInteger(Value& value, long long lowest) {
    ReadParsed(value, [lowest](std::string_view text, Value& parsed) {
        long long number = 0;
        if (ParseInteger(text, number) == 0 || number < lowest || number > std::numeric_limits<Stored>::max()) {
            return 0;
        }
        parsed = static_cast<Stored>(number);
        return 1;
    });
}

template <class Value>
void CISTREAMDECORATORTEXT::ReadFromString(Value& value) {
    ReadParsed(value, [](std::string_view text, Value& parsed) {
        // A zero byte would hide what comes behind it.
        return text.find('\0') == std::string_view::npos ? parsed.FromString(std::string(text).c_str()) : 0;
    });
}

void CISTREAMDECORATORTEXT::GetValue(CDATETIME& value) { ReadFromString(value); }

void CISTREAMDECORATORTEXT::GetValue(CTIME& value) { ReadFromString(value); }

void CISTREAMDECORATORTEXT::GetValue(CDATE& value) { ReadFromString(value); }

void CISTREAMDECORATORTEXT::GetValue(double& value) { ReadParsed(value, ParseDouble); }

void CISTREAMDECORATORTEXT::GetValue(unsigned long& value) {
    ReadInteger<std::uint32_t>(value, std::numeric_limits<std::int32_t>::min());
}

void CISTREAMDECORATORTEXT::GetValue(unsigned short& value) { ReadInteger<unsigned short>(value, 0); }

void CISTREAMDECORATORTEXT::GetValue(long& value) {
    ReadInteger<std::int32_t>(value, std::numeric_limits<std::int32_t>::min());
}

void CISTREAMDECORATORTEXT::GetValue(short& value) { ReadInteger<short>(value, std::numeric_limits<short>::min()); }

void CISTREAMDECORATORTEXT::GetValue(std::string& value, long length) {
    if (length < 0) {
        FailOSErr(kErrStreamEnd);
    }
    std::string text;
    ReadCharacters(&text, static_cast<std::size_t>(length), nullptr);
    value = std::move(text);
}

void CISTREAMDECORATORTEXT::GetValue(char* buffer, long length) {
    FailNull(buffer);
    std::string text;
    GetValue(text, length);
    // Decoding may have made it longer than what was read.
    buffer[text.copy(buffer, static_cast<std::size_t>(length))] = '\0';
}

void CISTREAMDECORATORTEXT::GetValue(char& value) {
    char character = '\0';
    if (GetValue(static_cast<void*>(&character), 1L) != 1) {
        FailOSErr(kErrStreamEnd);
    }
    mIsEndOfLine = IsEOL(character);
    value = character;
}

void CISTREAMDECORATORTEXT::GetValueBOOL(int& value) {
    ReadInteger<std::int32_t>(value, std::numeric_limits<std::int32_t>::min());
}

int CISTREAMDECORATORTEXT::IsEndOfLine() const { return mIsEndOfLine != 0 ? 1 : CISTREAMDECORATOR::IsEndOfLine(); }

void CISTREAMDECORATORTEXT::ReadLine(std::string& line) {
    bool hasQuotes = false;
    if (std::string_view ahead; TakeAhead(ahead, std::string_view::npos, nullptr, hasQuotes)) {
        ClearEndOfLine();
        line.assign(ahead);
        return;
    }
    std::string text;
    ReadCharacters(&text, std::string::npos, nullptr);
    line = std::move(text);
    ClearEndOfLine();
}

void CISTREAMDECORATORTEXT::GetNextLine() {
    ReadCharacters(nullptr, std::string::npos, nullptr);
    ClearEndOfLine();
}

}  // namespace MLCore
