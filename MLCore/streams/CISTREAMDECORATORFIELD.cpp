#include <MLCore/streams/CISTREAMDECORATORFIELD.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CNULLENCODER.h>
#include <MLCore/streams/detail/OwnClass.h>

namespace MLCore {

CISTREAMDECORATORFIELD::CISTREAMDECORATORFIELD(CISTREAM& component, char separator, CENCODER& encoder)
    : CSTREAM(component.GetOpenMode()), CISTREAMDECORATORTEXT(component), mSeparator(separator), mEncoder(encoder) {}

CISTREAMDECORATORFIELD::~CISTREAMDECORATORFIELD() = default;

void CISTREAMDECORATORFIELD::ReadNextValue(std::string& value, long maxLength) {
    if (maxLength < 0) {
        FailOSErr(kErrStreamEnd);
    }
    const std::size_t limit = static_cast<std::size_t>(maxLength);
    std::string_view ahead;
    bool hasQuotes = false;
    const bool isAhead = TakeAhead(ahead, limit, &mSeparator, hasQuotes);
    if (isAhead && !hasQuotes && IsOfClass<CCSVENCODER, CNULLENCODER>(mEncoder)) {
        value.assign(ahead);  // as they would
        return;
    }
    if (isAhead && IsOfClass<CCSVENCODER>(mEncoder)) {
        CCSVENCODER::Unquote(ahead, value);
        return;
    }
    std::string field(ahead);
    if (!isAhead) {
        ReadCharacters(&field, limit, &mSeparator);
    }
    value = mEncoder.Decode(field);
}

void CISTREAMDECORATORFIELD::GetValue(std::string& value, long length) { ReadNextValue(value, length); }

void CISTREAMDECORATORFIELD::GetValue(char& value) {
    const std::string field = ReadToken();
    value = field.empty() ? '\0' : field.front();
}

}  // namespace MLCore
