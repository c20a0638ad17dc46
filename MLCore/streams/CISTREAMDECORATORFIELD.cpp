#include <MLCore/streams/CISTREAMDECORATORFIELD.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/streams/CENCODER.h>

namespace MLCore {

CISTREAMDECORATORFIELD::CISTREAMDECORATORFIELD(CISTREAM& component, char separator, CENCODER& encoder)
    : CSTREAM(component.GetOpenMode()), CISTREAMDECORATORTEXT(component), mSeparator(separator), mEncoder(encoder) {}

CISTREAMDECORATORFIELD::~CISTREAMDECORATORFIELD() = default;

void CISTREAMDECORATORFIELD::ReadNextValue(std::string& value, long maxLength) {
    if (maxLength < 0) {
        FailOSErr(kErrStreamEnd);
    }
    std::string field;
    ReadCharacters(&field, static_cast<std::size_t>(maxLength), &mSeparator);
    value = mEncoder.Decode(field);
}

void CISTREAMDECORATORFIELD::GetValue(std::string& value, long length) { ReadNextValue(value, length); }

void CISTREAMDECORATORFIELD::GetValue(char& value) {
    const std::string field = ReadToken();
    value = field.empty() ? '\0' : field.front();
}

}  // namespace MLCore
