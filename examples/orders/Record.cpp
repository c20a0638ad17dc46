#include "Record.h"

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/text/DecimalText.h>
#include <MLCore/text/DoubleText.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace orders {

using namespace MLCore;

MLCORE_REGISTER_CLASS(CRECORD)

namespace {

// The types of properties, in the order of PROPERTY::MEMBER; below, each as text and by key.
constexpr const char* kTypeNames[] = {"a text", "a whole number", "a date YYYY-MM-DD", "an amount"};

bool Parse(const std::string& text, std::string& value) {
    value = text;
    return text.size() <= 32767 && text.find('\0') == std::string::npos;
}
bool Parse(const std::string& text, long& value) {
    long long number = 0;
    const bool isNumber = ParseInteger(text, number) != 0 && std::in_range<std::int32_t>(number);
    value = static_cast<long>(number);
    return isNumber;
}
// The parsers of CDATE are lenient; a date that is not written back as it was read is a mistake here.
bool Parse(const std::string& text, CDATE& value) {
    return value.FromStringXML(text.c_str()) != 0 && value.ToStringXML() == text;
}
bool Parse(const std::string& text, AMOUNT& value) { return value.FromText(text); }

std::string ToText(const std::string& value) { return value; }
std::string ToText(long value) { return std::to_string(value); }
std::string ToText(const CDATE& value) { return value.ToStringXML(); }
std::string ToText(const AMOUNT& value) { return value.ToText(); }

CVALUE ToValue(const auto& value) { return value; }
CVALUE ToValue(const AMOUNT& value) {
    double number = 0;
    static_cast<void>(ParseDouble(value.ToText(), number));
    return number;
}

void SetFrom(const CVALUE& value, std::string& member) { member = value.ToString(); }
void SetFrom(const CVALUE& value, long& member) { member = value.ToLong(); }
void SetFrom(const CVALUE& value, CDATE& member) { member = value.ToDate(); }
void SetFrom(const CVALUE& value, AMOUNT& member) {
    std::string text;
    AppendDouble(text, value.ToDouble());
    if (!member.FromText(text)) {
        FailWith(kErrValueType, text, " is not an amount");
    }
}

}  // namespace

const PROPERTY& CRECORD::PropertyOf(const std::string& key) {
    const PROPERTIES properties = GetProperties();
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&key](const PROPERTY& property) { return property.key == key; });
    if (found == properties.end()) {
        FailUnknownKey(key);
    }
    return *found;
}

CSHAREOBJECTPTR<COBJECT> CRECORD::GetKeyValue(const std::string& key) {
    const auto get = [this](auto member) { return ToValue(this->*member); };
    return CVALUEOBJECT::Create(std::visit(get, PropertyOf(key).member));
}

void CRECORD::SetKeyValue(const std::string& key, COBJECT* value) {
    const PROPERTY& property = PropertyOf(key);
    const CVALUE given = ValueOf(value);
    std::visit([&](auto member) { SetFrom(given, this->*member); }, property.member);
}

std::string CRECORD::GetText(const PROPERTY& property) const {
    return std::visit([this](auto member) { return ToText(this->*member); }, property.member);
}

bool CRECORD::SetText(const PROPERTY& property, const std::string& text) {
    return std::visit([&](auto member) { return Parse(text, this->*member); }, property.member);
}

const char* CRECORD::TypeName(const PROPERTY& property) { return kTypeNames[property.member.index()]; }

}  // namespace orders
