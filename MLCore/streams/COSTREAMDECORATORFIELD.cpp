#include <MLCore/streams/COSTREAMDECORATORFIELD.h>

#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CHARACTERSET.h>
#include <MLCore/streams/CNULLENCODER.h>
#include <MLCore/streams/OwnClass.h>
#include <MLCore/streams/STREAMCURSOR.h>

namespace MLCore {

namespace {

/// Put together without memory of its own.
constexpr std::size_t kShortField = 128;
/// What is not written as it stands: by the raw write, and by one of the encoders.
constexpr CHARACTERSET kLineEnds(std::string_view("\r\n\0", 3));
constexpr CHARACTERSET kChanged(std::string_view("\r\n\0;\"", 5));

}  // namespace

COSTREAMDECORATORFIELD::COSTREAMDECORATORFIELD(COSTREAM& component, char separator, CENCODER& encoder)
    : CSTREAM(component.GetOpenMode()), COSTREAMDECORATORTEXT(component), mSeparator(separator), mEncoder(encoder) {}

COSTREAMDECORATORFIELD::~COSTREAMDECORATORFIELD() = default;

void COSTREAMDECORATORFIELD::SetValue(const std::string& value) { WriteField(value); }

void COSTREAMDECORATORFIELD::SetValue(const char* value) {
    const std::string_view text = value != nullptr ? value : "";
    if (IsOfClass<COSTREAMDECORATORFIELD>(*this)) {
        WriteField(text);
    } else {
        SetValue(std::string(text));  // a derived class may have one of its own
    }
}

void COSTREAMDECORATORFIELD::WriteField(std::string_view value) {
    if (!WritePlainField(value)) {
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

/// The same for what the library's encoders and its raw write leave as it is; false, with nothing done, for all else.
bool COSTREAMDECORATORFIELD::WritePlainField(std::string_view value) {
    if (value.size() >= kShortField || !IsOfClass<COSTREAMDECORATORFIELD>(*this) ||
        !IsOfClass<CCSVENCODER, CNULLENCODER>(mEncoder)) {
        return false;
    }
    bool isChanged = kLineEnds.Has(mSeparator);
    for (const char character : value) {
        isChanged |= kChanged.Has(character);
    }
    if (isChanged) {
        return false;
    }
    char field[kShortField];
    field[0] = mSeparator;
    STREAMCURSOR::Copy(field + 1, value.data(), value.size());
    const char* const from = field + (mIsLineStart != 0 ? 1 : 0);
    const char* const to = field + 1 + value.size();
    GetComponent().SetValue(static_cast<const void*>(from), static_cast<long>(to - from));
    return true;
}

void COSTREAMDECORATORFIELD::SetNextLine() {
    COSTREAMDECORATORTEXT::SetNextLine();
    mIsLineStart = 1;
}

}  // namespace MLCore
