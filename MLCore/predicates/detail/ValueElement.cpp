#include <MLCore/predicates/detail/ValueElement.h>

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FailureChecks.h>
#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>
#include <MLCore/text/DecimalText.h>
#include <MLCore/text/DoubleText.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <type_traits>

namespace MLCore {

namespace {

using TYPE = CVALUE::Type;

constexpr const char* kType = "type";
constexpr const char* kValue = "value";
constexpr char kTimeMark = 'T';

void Require(bool condition) {
    if (!condition) {
        FailOSErr(kErrValueType);
    }
}

template <class Number>
CVALUE ReadNumber(const std::string& text) {
    long long number = 0;
    using LIMITS = std::numeric_limits<Number>;
    Require(ParseInteger(text, number) != 0 && number >= LIMITS::min() && number <= LIMITS::max());
    if constexpr (std::is_same_v<Number, std::int32_t>) {
        return CVALUE(static_cast<long>(number));
    } else if constexpr (std::is_same_v<Number, std::uint32_t>) {
        return CVALUE(static_cast<unsigned long>(number));
    } else {
        return CVALUE(static_cast<Number>(number));
    }
}

CVALUE ReadBool(const std::string& text) { return CVALUE(static_cast<int>(ReadNumber<std::int32_t>(text).ToLong())); }

CVALUE ReadDouble(const std::string& text) {
    double number = 0;
    Require(ParseDouble(text, number) != 0);
    return CVALUE(number);
}

CVALUE ReadFloat(const std::string& text) {
    constexpr double kWrittenMax = 3.4028235e38;  // the shortest text of the largest float, which is a little less
    constexpr double kMax = std::numeric_limits<float>::max();
    const double number = ReadDouble(text).ToDouble();
    Require(!std::isfinite(number) || std::abs(number) <= kWrittenMax);
    const float stored = static_cast<float>(std::isfinite(number) ? std::clamp(number, -kMax, kMax) : number);
    Require(stored != 0 || number == 0);
    return CVALUE(stored);
}

// Dates and times without a zone, as ISO 8601 writes them; what is not written back as it was read is none.

std::string TextOf(const CDATE& date) {
    Require(date.IsNull() != 0 || date.IsDate() != 0);
    return date.ToStringXML();
}

std::string TextOf(const CTIME& time) {
    Require(time.IsTime() != 0);
    return time.ToString();
}

std::string TextOf(const CDATETIME& moment) {
    if (moment == CDATETIME()) {
        return {};
    }
    return TextOf(moment.GetDate()) + kTimeMark + TextOf(moment.GetTime());
}

CDATE DateOf(const std::string& text) {
    CDATE date;
    Require(text.empty() || (date.FromStringXML(text.c_str()) != 0 && date.ToStringXML() == text));
    return date;
}

CTIME TimeOf(const std::string& text) {
    CTIME time;
    Require(time.FromString(text.c_str()) != 0 && time.ToString() == text);
    return time;
}

CDATETIME DateTimeOf(const std::string& text) {
    if (text.empty()) {
        return {};
    }
    const std::size_t mark = text.find(kTimeMark);
    Require(mark != std::string::npos);
    return {DateOf(text.substr(0, mark)), TimeOf(text.substr(mark + 1))};
}

template <auto accessor>
std::string WriteInteger(const CVALUE& value) {
    return std::to_string((value.*accessor)());
}

constexpr struct {
    TYPE type;
    const char* name;
    std::string (*write)(const CVALUE& value);
    CVALUE (*read)(const std::string& text);
} kForms[] = {
    {TYPE::Short, "short", WriteInteger<&CVALUE::ToShort>, ReadNumber<short>},
    {TYPE::UShort, "uShort", WriteInteger<&CVALUE::ToWord>, ReadNumber<unsigned short>},
    {TYPE::Long, "long", WriteInteger<&CVALUE::ToLong>, ReadNumber<std::int32_t>},
    {TYPE::ULong, "uLong", WriteInteger<&CVALUE::ToDWord>, ReadNumber<std::uint32_t>},
    {TYPE::Date, "date", [](const CVALUE& value) { return TextOf(value.ToDate()); },
     [](const std::string& text) { return CVALUE(DateOf(text)); }},
    {TYPE::Time, "time", [](const CVALUE& value) { return TextOf(value.ToTime()); },
     [](const std::string& text) { return CVALUE(TimeOf(text)); }},
    {TYPE::String, "string", [](const CVALUE& value) { return value.ToString(); },
     [](const std::string& text) { return CVALUE(text); }},
    {TYPE::Float, "float",
     [](const CVALUE& value) {
         std::string text;
         AppendFloat(text, value.ToFloat());
         return text;
     },
     ReadFloat},
    {TYPE::Double, "double",
     [](const CVALUE& value) {
         std::string text;
         AppendDouble(text, value.ToDouble());
         return text;
     },
     ReadDouble},
    {TYPE::DateTime, "dateTime", [](const CVALUE& value) { return TextOf(value.ToDateTime()); },
     [](const std::string& text) { return CVALUE(DateTimeOf(text)); }},
    {TYPE::Bool, "bool", WriteInteger<&CVALUE::ToBool>, ReadBool},
};

}  // namespace

void WriteValueElement(CKEYWRITER& writer, const char* element, const CVALUE& value) {
    const auto form = std::find_if(std::begin(kForms), std::end(kForms),
                                   [&value](const auto& row) { return row.type == value.GetType(); });
    Require(form != std::end(kForms) || value.IsNull() != 0);
    const std::string text = value.IsNull() != 0 ? std::string() : form->write(value);
    writer.BeginElement(element);
    if (value.IsNull() == 0) {
        writer.SetAttribute(kType, form->name);
        writer.SetAttribute(kValue, text);
    }
    writer.EndElement();
}

CVALUE ReadValueElement(CKEYREADER& reader, const char* element) {
    CVALUE value;
    reader.BeginElement(element);
    if (reader.HasAttribute(kType) != 0) {
        const std::string name = reader.GetAttribute(kType);
        const auto form =
            std::find_if(std::begin(kForms), std::end(kForms), [&name](const auto& row) { return row.name == name; });
        Require(form != std::end(kForms));
        value = form->read(reader.GetAttribute(kValue));
    }
    reader.EndElement();
    return value;
}

}  // namespace MLCore
