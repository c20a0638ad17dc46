#include <MLCore/streams/COSTREAMDECORATORFIELD.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CNULLENCODER.h>
#include <MLCore/streams/detail/CHARACTERSET.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>
#include <MLCore/streams/detail/SpecialCharacters.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace MLCore {

namespace {

/// Fields up to this length are put together on the stack.
constexpr std::size_t kShortField = 128;
/// With the digit that is not counted and a sign.
constexpr std::size_t kLongestNumber = std::numeric_limits<std::int32_t>::digits10 + 2;
/// The characters that the raw write changes, and those that it or an encoder changes.
constexpr CHARACTERSET kLineEnds(std::string_view("\r\n\0", 3));
constexpr CHARACTERSET kChanged(std::string_view("\r\n\0;\"", 5));

bool IsChanged(std::string_view text) noexcept {
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const char* const special = FindSpecial(begin, end, ';');
    if (end - special < kWordSize && end - begin >= kWordSize && MarkSpecial(end - kWordSize, ';') == 0) {
        return false;
    }
    return std::any_of(special, end, [](char character) { return kChanged.Has(character); });
}

}  // namespace

COSTREAMDECORATORFIELD::COSTREAMDECORATORFIELD(COSTREAM& component, char separator, CENCODER& encoder)
    : CSTREAM(component.GetOpenMode()),
      COSTREAMDECORATORTEXT(component, typeid(COSTREAMDECORATORFIELD)),
      mSeparator(separator),
      mEncoder(encoder) {}

COSTREAMDECORATORFIELD::~COSTREAMDECORATORFIELD() = default;

void COSTREAMDECORATORFIELD::SetValue(const std::string& value) { WriteField(value); }

void COSTREAMDECORATORFIELD::SetValue(const char* value) {
    const std::string_view text = value != nullptr ? value : "";
    if (IsOwn()) {
        WriteField(text);
    } else {
        SetValue(std::string(text));  // which a derived class may have overridden
    }
}

void COSTREAMDECORATORFIELD::WriteField(std::string_view value) {
    if (!IsPlain() || !(IsChanged(value) ? WriteQuoted(value) : WritePlain(value))) {
        WriteEncoded(std::string(value));
    }
    mIsLineStart = 0;
}

void COSTREAMDECORATORFIELD::WriteEncoded(const std::string& value) {
    std::string field = mEncoder.Encode(value);
    if (mIsLineStart == 0) {
        field.insert(field.begin(), mSeparator);
    }
    COSTREAM::SetValue(field);
}

/// Whether only the library's own encoders and raw write decide what a field looks like.
inline bool COSTREAMDECORATORFIELD::IsPlain() const noexcept {
    return IsOwn() && IsExactly<CCSVENCODER, CNULLENCODER>(mEncoder) && !kLineEnds.Has(mSeparator);
}

/// WriteField() of a text that the encoders leave as it is; false, with nothing done, for one that is too long.
bool COSTREAMDECORATORFIELD::WritePlain(std::string_view value) {
    const std::size_t lead = mIsLineStart != 0 ? 0 : 1;
    const std::size_t size = lead + value.size();
    if (size > kShortField) {
        return false;
    }
    char field[kShortField];
    STREAMCURSOR* const lent = GetLent();
    char* const room = lent != nullptr ? lent->Room(size) : nullptr;
    char* const to = room != nullptr ? room : field;
    STREAMCURSOR::Copy(to + lead, value.data(), value.size());
    if (lead != 0) {
        *to = mSeparator;  // not before: the value may lie there
    }
    if (room != nullptr) {
        lent->Advance(static_cast<long>(size));
    } else {
        GetComponent().SetValue(static_cast<const void*>(to), static_cast<long>(size));
    }
    return true;
}

/// WriteField() of a text that the encoder puts in quotes; false, with nothing done, for one that is changed further or
/// is too long.
bool COSTREAMDECORATORFIELD::WriteQuoted(std::string_view value) {
    const bool hasLineEnds =
        std::any_of(value.begin(), value.end(), [](char character) { return kLineEnds.Has(character); });
    if (hasLineEnds || value.size() > kShortField / 2 - 2 || !IsExactly<CCSVENCODER>(mEncoder)) {
        return false;
    }
    char field[kShortField];
    field[0] = mSeparator;
    const char* const end = CCSVENCODER::Quote(value, field + (mIsLineStart != 0 ? 0 : 1));
    WriteRun(field, end);
    return true;
}

/// The digits of a number need no encoding: they go to the component's memory where it has room for them.
void COSTREAMDECORATORFIELD::WriteInteger(std::int32_t value) {
    STREAMCURSOR* const lent = GetLent();
    char* const room = lent != nullptr && IsPlain() ? lent->Room(kLongestNumber + 1) : nullptr;
    if (room == nullptr) {
        COSTREAMDECORATORTEXT::WriteInteger(value);
        return;
    }
    *room = mSeparator;
    char* const digits = room + (mIsLineStart != 0 ? 0 : 1);
    lent->Advance(static_cast<long>(std::to_chars(digits, digits + kLongestNumber, value).ptr - room));
    mIsLineStart = 0;
}

void COSTREAMDECORATORFIELD::SetNextLine() {
    WriteLineEnd();
    mIsLineStart = 1;
    GetComponent().SetNextLine();
}

}  // namespace MLCore
