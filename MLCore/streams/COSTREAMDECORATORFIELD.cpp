#include <MLCore/streams/COSTREAMDECORATORFIELD.h>

#include <MLCore/streams/CENCODER.h>

namespace MLCore {

COSTREAMDECORATORFIELD::COSTREAMDECORATORFIELD(COSTREAM& component, char separator, CENCODER& encoder)
    : CSTREAM(component.GetOpenMode()), COSTREAMDECORATORTEXT(component), mSeparator(separator), mEncoder(encoder) {}

COSTREAMDECORATORFIELD::~COSTREAMDECORATORFIELD() = default;

void COSTREAMDECORATORFIELD::SetValue(const std::string& value) {
    std::string field = mEncoder.Encode(value);
    if (mIsLineStart == 0) {
        field.insert(field.begin(), mSeparator);
    }
    COSTREAM::SetValue(field);
    mIsLineStart = 0;
}

void COSTREAMDECORATORFIELD::SetValue(const char* value) { SetValue(std::string(value != nullptr ? value : "")); }

void COSTREAMDECORATORFIELD::SetNextLine() {
    COSTREAMDECORATORTEXT::SetNextLine();
    mIsLineStart = 1;
}

}  // namespace MLCore
