#include <MLCore/streams/CISTREAMDECORATORFIELD.h>

#include <MLCore/core/ExactClass.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CNULLENCODER.h>

namespace MLCore {

CISTREAMDECORATORFIELD::CISTREAMDECORATORFIELD(CISTREAM& component, char separator, CENCODER& encoder)
    : CSTREAM(component.GetOpenMode()),
      CISTREAMDECORATORTEXT(component, typeid(CISTREAMDECORATORFIELD)),
      mSeparator(separator),
      mEncoder(encoder) {}

CISTREAMDECORATORFIELD::~CISTREAMDECORATORFIELD() = default;

void CISTREAMDECORATORFIELD::ReadNextValue(std::string& value, long maxLength) {
    RequireLength(maxLength);
    bool hasQuotes = false;
    const std::string_view field = ReadCharacters(mSeparator, static_cast<std::size_t>(maxLength), hasQuotes);
    if (!hasQuotes && IsExactly<CCSVENCODER, CNULLENCODER>(mEncoder)) {
        value = field;  // as they would
    } else if (IsExactly<CCSVENCODER>(mEncoder)) {
        CCSVENCODER::Unquote(field, value);
    } else {
        value = mEncoder.Decode(std::string(field));
    }
}

void CISTREAMDECORATORFIELD::GetValue(std::string& value, long length) { ReadNextValue(value, length); }

void CISTREAMDECORATORFIELD::GetValue(char& value) {
    const std::string field = ReadToken("a character");
    value = field.empty() ? '\0' : field.front();
}

}  // namespace MLCore
